#pragma once

#include "curve/data/CurveModuleRow.h"

#include <QDialog>

#include <memory>

class QDoubleSpinBox;

namespace IVCurve {

namespace Ui {
class CurveModulesEditDlg;
}

/// Edits a module of the catalogue and stores it. Of a module that the catalogue came with only the star
/// can be changed.
class CurveModulesEditDlg : public QDialog
{
    Q_OBJECT

public:
    enum Mode
    {
        NewModule = 0,
        StoredModule = 1
    };

    CurveModulesEditDlg(unsigned moduleId, int mode, QWidget *parent = nullptr);
    ~CurveModulesEditDlg() override;

    /// The module as it is stored; null if it could not be read.
    const CurveModuleRow *row() const { return m_row.get(); }

public slots:
    void accept() override;
    void reject() override;
    void slotFavouriteToggled(bool on);
    void slotAlphaPercentClicked();
    void slotBetaPercentClicked();

private:
    struct Field
    {
        QDoubleSpinBox *box;
        QVariant CurveModuleRow::*value;
    };

    QVector<Field> fields() const;
    void showRow();
    bool canEdit() const;
    bool store(CurveModuleRow &row) const;

    std::unique_ptr<Ui::CurveModulesEditDlg> m_ui;
    int m_mode;
    std::unique_ptr<CurveModuleRow> m_row;
};

} // namespace IVCurve
