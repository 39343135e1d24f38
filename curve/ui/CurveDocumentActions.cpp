#include "curve/ui/CurveDocumentActions.h"

#include <QAction>

namespace IVCurve {

namespace {

using Actions = CurveDocumentActions;

enum Start
{
    Enabled,
    Disabled,
    Checked,
    Unchecked
};

/// A text and what tells translators about it.
struct Words
{
    const char *text;
    const char *comment;
};

struct ActionFacts
{
    QAction *Actions::*member;
    const char *objectName;
    Words text;
    Words toolTip;
    const char *icon;
    const char *shortcut;
    Start start;
};

// Some look alike by their icons or tips: users know them so.
constexpr ActionFacts actionFacts[] = {
    {&Actions::actionPrint,
     "actionPrint",
     {nullptr, nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Print", "Tool tip hint"),
     ":res/toolButtons/printer.png",
     "Ctrl+P",
     Enabled},
    {&Actions::actionSave, "actionSave",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Save", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Save", "Tool tip hint"),
     ":res/toolButtons/save.png", "Ctrl+S", Disabled},
    {&Actions::actionExportToPdf, "actionExportToPdf",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export to PDF", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export to PDF", "Tool tip hint"),
     ":res/toolButtons/export_pdf.png", "", Enabled},
    {&Actions::actionExportToImage, "actionExportToImage",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export to Image", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export to Image", "Tool tip hint"),
     ":res/toolButtons/export_img.png", "", Enabled},
    {&Actions::actionInsertTreeRow, "actionInsertTreeRow",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Insert Row", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Insert Row", "Tool tip hint"),
     ":res/toolButtons/plus_sign.png", "Ins", Enabled},
    {&Actions::actionDeleteTreeRow, "actionDeleteTreeRow",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Delete Row", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Delete Row", "Tool tip hint"),
     ":res/toolButtons/delete_row.png", "Del", Enabled},
    {&Actions::actionShowIV,
     "actionShowIV",
     {QT_TRANSLATE_NOOP("IVCurve::CurveDocumentActions", "IV"), nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Show IV Curves", "Tool tip hint"),
     "",
     "",
     Checked},
    {&Actions::actionShowPWR,
     "actionShowPWR",
     {QT_TRANSLATE_NOOP("IVCurve::CurveDocumentActions", "PWR"), nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Show VP Power Curves", "Tool tip hint"),
     "",
     "",
     Unchecked},
    {&Actions::actionShowMEAS,
     "actionShowMEAS",
     {QT_TRANSLATE_NOOP("IVCurve::CurveDocumentActions", "MEAS"), nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Show Measured Curve Data", "Tool tip hint"),
     "",
     "",
     Unchecked},
    {&Actions::actionShowSTC,
     "actionShowSTC",
     {QT_TRANSLATE_NOOP("IVCurve::CurveDocumentActions", "STC"), nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Show STC-corrected Curves", "Tool tip hint"),
     "",
     "",
     Checked},
    {&Actions::actionShowNOM,
     "actionShowNOM",
     {QT_TRANSLATE_NOOP("IVCurve::CurveDocumentActions", "NOM"), nullptr},
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Show Nominal Curve", "Tool tip hint"),
     "",
     "",
     Unchecked},
    {&Actions::actionDownload, "actionDownload",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Download", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Download data from tester", "Tool tip hint"),
     ":res/toolButtons/kt_7_download.png", "", Enabled},
    {&Actions::actionViewDetails, "actionViewDetails",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "View Details", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "View Details from tester", "Tool tip hint"),
     ":res/toolButtons/kt_7_download.png", "", Enabled},
    {&Actions::actionManageModules, "actionManageModules",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Manage Module Database", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Manage Module Database", "Tool tip hint"),
     ":res/toolButtons/module32.png", "", Enabled},
    {&Actions::actionImportCSV, "actionImportCSV",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Import CSV", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Import CSV", "Tool tip hint"),
     ":res/toolButtons/import.png", "", Enabled},
    {&Actions::actionAssignModule, "actionAssignModule",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Set PV Module Type", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Manage Module Database", "Tool tip hint"),
     ":res/toolButtons/module32.png", "", Enabled},
    {&Actions::actionExportPoints, "actionExportPoints",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export MEAS IV Curve Points", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export Measured IV Curve Points in CSV format",
                        "Tool tip hint"),
     ":res/toolButtons/import.png", "", Enabled},
    {&Actions::actionExportPointsSTC, "actionExportPointsSTC",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export STC IV Curve Points", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export STC IV Curve Points in CSV format",
                        "Tool tip hint"),
     ":res/toolButtons/import.png", "", Enabled},
    {&Actions::actionExportPWRPoints, "actionExportPWRPoints",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export MEAS PWR Curve Points", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export Measured Power Curve Points in CSV format",
                        "Tool tip hint"),
     ":res/toolButtons/import.png", "", Enabled},
    {&Actions::actionExportPWRPointsSTC, "actionExportPWRPointsSTC",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export STC PWR Curve Points", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Export STC Power Curve Points in CSV format",
                        "Tool tip hint"),
     ":res/toolButtons/import.png", "", Enabled},
    {&Actions::actionSetColour, "actionSetColour",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Set Colour", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions",
                        "Change the colour of lines on the graph associated with this string",
                        "Tool tip hint"),
     "", "", Enabled},
    {&Actions::actionCurveReport, "actionCurveReport",
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Curve Report", "Tool tip hint"),
     QT_TRANSLATE_NOOP3("IVCurve::CurveDocumentActions", "Curve Report", "Tool tip hint"), "", "", Enabled},
};

QString translated(const Words &words)
{
    return words.text ? Actions::tr(words.text, words.comment) : QString();
}

QAction *makeAction(const ActionFacts &facts, QObject *parent)
{
    auto *action = new QAction(translated(facts.text), parent);
    action->setObjectName(QLatin1String(facts.objectName));
    action->setToolTip(translated(facts.toolTip));
    if (*facts.icon)
        action->setIcon(QIcon(QString::fromLatin1(facts.icon)));
    action->setShortcut(QKeySequence(QLatin1String(facts.shortcut)));
    action->setEnabled(facts.start != Disabled);
    action->setCheckable(facts.start == Checked || facts.start == Unchecked);
    action->setChecked(facts.start == Checked);
    return action;
}

} // namespace

CurveDocumentActions::CurveDocumentActions(QObject *parent)
{
    for (const ActionFacts &facts : actionFacts) {
        m_owned.emplace_back(makeAction(facts, parent));
        this->*facts.member = m_owned.back().get();
    }
    // The keys are those of the tree while it has the focus, and of nothing else in the window.
    for (QAction *action : {actionSave, actionDeleteTreeRow, actionInsertTreeRow})
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
}

CurveDocumentActions::~CurveDocumentActions() = default;

QList<QAction *> CurveDocumentActions::ofString() const
{
    return QList<QAction *>{actionViewDetails, actionAssignModule, actionCurveReport} + exports() +
           QList<QAction *>{actionSetColour};
}

QList<QAction *> CurveDocumentActions::exports() const
{
    return {actionExportPoints, actionExportPointsSTC, actionExportPWRPoints, actionExportPWRPointsSTC};
}

} // namespace IVCurve
