#pragma once

#include <QDialog>

#include <memory>

class QTableWidgetItem;

namespace IVCurve {

namespace Ui {
class CurveModulesDlg;
}
struct CurveModuleRow;

/// Lists the catalogue of modules, and adds, edits, copies and deletes modules in it at once.
class CurveModulesDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CurveModulesDlg(QWidget *parent = nullptr);
    ~CurveModulesDlg() override;

public slots:
    void clickAdd();
    void clickEdit();
    void clickCopy();
    void clickDelete();
    void dblclickModules(int row, int column);

private:
    void fillTable();
    void insertTableRow(int tableRow, const CurveModuleRow &row);
    void deleteModule(QTableWidgetItem *item);

    std::unique_ptr<Ui::CurveModulesDlg> m_ui;
};

} // namespace IVCurve
