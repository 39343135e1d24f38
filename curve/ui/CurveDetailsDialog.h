#pragma once

#include <QDialog>

#include <memory>

namespace IVCurve {

namespace Ui {
class CurveDetailsDialog;
}
class StringRecord;
struct CurveModuleRow;
struct STCparameters;

/// Shows what the tester told of a string, and edits what its corrected and its nominal curve depend on.
/// The record is a copy that changes when the dialog is accepted, and not before.
class CurveDetailsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The record stays the caller's.
    explicit CurveDetailsDialog(StringRecord *record, QWidget *parent = nullptr);
    ~CurveDetailsDialog() override;

    /// The string that the dialog is about.
    quint32 curveId() const { return m_curveId; }

public slots:
    void accept() override;
    void slotBlaesserToggled(bool on);
    void slotIECToggled(bool on);
    void slotModulesComboSelected(int selected);
    void slotFavouritesToggled(bool on);
    void slotAndersonToggled(bool on);
    void slotAlphaPercentClicked();
    void slotBetaPercentClicked();

private:
    void connectAll();
    void fillTest();
    void fillModule();
    void fillModules();
    void fillSettings();
    void showRatings(double voc, double isc, double vmp, double imp);
    void showNoModule();
    void showModule(const CurveModuleRow &row);
    void takeSettings();
    void takeModule();
    quint8 chosenAlgorithm() const;

    std::unique_ptr<Ui::CurveDetailsDialog> m_ui;
    StringRecord *m_record;
    quint32 m_curveId;
};

} // namespace IVCurve
