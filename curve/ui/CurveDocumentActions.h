#pragma once

#include <QCoreApplication>

#include <memory>
#include <vector>

class QAction;
class QObject;

namespace IVCurve {

/// The commands of a curve document, in the order in which they are made.
struct CurveDocumentActions
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::CurveDocumentActions)

public:
    explicit CurveDocumentActions(QObject *parent);
    ~CurveDocumentActions();
    CurveDocumentActions(const CurveDocumentActions &) = delete;
    CurveDocumentActions &operator=(const CurveDocumentActions &) = delete;

    /// Those that concern the string under the last right click.
    QList<QAction *> ofString() const;
    /// The four exports of points, in the order of their kinds in the menu.
    QList<QAction *> exports() const;

    QAction *actionPrint = nullptr;
    QAction *actionSave = nullptr;
    QAction *actionExportToPdf = nullptr;
    QAction *actionExportToImage = nullptr;
    QAction *actionInsertTreeRow = nullptr;
    QAction *actionDeleteTreeRow = nullptr;
    QAction *actionShowIV = nullptr;
    QAction *actionShowPWR = nullptr;
    QAction *actionShowMEAS = nullptr;
    QAction *actionShowSTC = nullptr;
    QAction *actionShowNOM = nullptr;
    QAction *actionDownload = nullptr;
    QAction *actionViewDetails = nullptr;
    QAction *actionManageModules = nullptr;
    QAction *actionImportCSV = nullptr;
    QAction *actionAssignModule = nullptr;
    QAction *actionExportPoints = nullptr;
    QAction *actionExportPointsSTC = nullptr;
    QAction *actionExportPWRPoints = nullptr;
    QAction *actionExportPWRPointsSTC = nullptr;
    QAction *actionSetColour = nullptr;
    QAction *actionCurveReport = nullptr;

private:
    std::vector<std::unique_ptr<QAction>> m_owned;
};

} // namespace IVCurve
