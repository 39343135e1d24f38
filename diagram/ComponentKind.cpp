#include "diagram/ComponentKind.h"

#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"

#include <QCoreApplication>

#include <iterator>

namespace {

using namespace DiagramXml;

constexpr ComponentKind kinds[] = {
    {NoteType, Tag::label, 0, 0, QT_TRANSLATE_NOOP("DiagramComponent", "Label"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add Label"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Insert notes here"), true, 0, 0, -1, -1},
    {InverterType, Tag::inverter, 150, 100, QT_TRANSLATE_NOOP("DiagramComponent", "Inverter"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add Invertor"), nullptr, true, 15, 30, 120, 40},
    {GenerationMeterType, Tag::generationMeter, 120, 60,
     QT_TRANSLATE_NOOP("DiagramComponent", "Generation Meter"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add Generation Meter"), nullptr, true, -135, 0, -1, -1},
    {DistributionBoardType, Tag::distributionBoard, 140, 80,
     QT_TRANSLATE_NOOP("DiagramComponent", "Distribution Board"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add Distribution Board"), nullptr, true, -135, 0, -1, -1},
    {AcIsolatorType, Tag::acIsolator, 55, 55, QT_TRANSLATE_NOOP("DiagramComponent", "AC Isolator"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add AC Isolator"), nullptr, true, -95, 0, -1, -1},
    {DcIsolatorType, Tag::dcIsolator, 40, 40, QT_TRANSLATE_NOOP("DiagramComponent", "DC Isolator"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add DC Isolator"), nullptr, true, -95, 0, -1, -1},
    {PanelType, Tag::panel, 30, 40, QT_TRANSLATE_NOOP("DiagramComponent", "PV Panel"),
     QT_TRANSLATE_NOOP("DiagramGraphicsScene", "Add PV Panel"), nullptr, false, 0, 0, -1, -1},
};
static_assert(std::size(kinds) == ComponentKind::count, "one row for each kind");

QString sceneText(const char *text)
{
    return QCoreApplication::translate("DiagramGraphicsScene", text);
}

} // namespace

const ComponentKind *ComponentKind::all()
{
    return kinds;
}

const ComponentKind &ComponentKind::ofType(int type)
{
    for (const ComponentKind &kind : kinds) {
        if (kind.type == type)
            return kind;
    }
    qFatal("no kind of component has the type %d", type);
}

QString ComponentKind::translatedName() const
{
    return QCoreApplication::translate("DiagramComponent", displayName);
}

QString ComponentKind::translatedMenuText() const
{
    return sceneText(menuText);
}

QString ComponentKind::suggestedCaption() const
{
    return suggestion ? sceneText(suggestion) : translatedName();
}
