#include "diagram/DiagramItemFactory.h"

#include "diagram/AcIsolatorDiagramComponent.h"
#include "diagram/ComponentKind.h"
#include "diagram/DcIsolatorDiagramComponent.h"
#include "diagram/DiagramConnection.h"
#include "diagram/DiagramItemType.h"
#include "diagram/DiagramXml.h"
#include "diagram/DistributionBoardDiagramComponent.h"
#include "diagram/GenerationMeterDiagramComponent.h"
#include "diagram/InverterDiagramComponent.h"
#include "diagram/LabelDiagramComponent.h"
#include "diagram/PanelDiagramComponent.h"

namespace {

struct Maker
{
    int type;
    DiagramComponent *(*forFile)();
    DiagramComponent *(*forUser)(const QString &id, const QString &caption, const QPointF &position);
};

template <typename Component> constexpr Maker makerOf(int type)
{
    return {type, []() -> DiagramComponent * { return new Component; },
            [](const QString &id, const QString &caption, const QPointF &position) -> DiagramComponent * {
                return new Component(id, caption, position);
            }};
}

constexpr Maker makers[] = {
    makerOf<LabelDiagramComponent>(NoteType),
    makerOf<InverterDiagramComponent>(InverterType),
    makerOf<GenerationMeterDiagramComponent>(GenerationMeterType),
    makerOf<DistributionBoardDiagramComponent>(DistributionBoardType),
    makerOf<AcIsolatorDiagramComponent>(AcIsolatorType),
    makerOf<DcIsolatorDiagramComponent>(DcIsolatorType),
    makerOf<PanelDiagramComponent>(PanelType),
};
static_assert(std::size(makers) == ComponentKind::count, "one maker for each kind");

const Maker &makerFor(int type)
{
    for (const Maker &maker : makers) {
        if (maker.type == type)
            return maker;
    }
    qFatal("no component has the type %d", type);
}

} // namespace

DiagramGraphicsItem *createDiagramItem(const QString &tag)
{
    if (tag == QLatin1String(DiagramXml::Tag::connection))
        return new DiagramConnection;
    for (int i = 0; i < ComponentKind::count; ++i) {
        const ComponentKind &kind = ComponentKind::all()[i];
        if (tag == QLatin1String(kind.tag))
            return makerFor(kind.type).forFile();
    }
    return nullptr;
}

DiagramComponent *createComponent(int type, const QString &id, const QString &caption,
                                  const QPointF &position)
{
    return makerFor(type).forUser(id, caption, position);
}
