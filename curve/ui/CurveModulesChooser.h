#pragma once

#include <QDialog>

#include <memory>

namespace IVCurve {

namespace Ui {
class CurveModulesChooser;
}

/// Asks for a module of the catalogue and how many of it are in series.
class CurveModulesChooser : public QDialog
{
    Q_OBJECT

public:
    explicit CurveModulesChooser(QWidget *parent = nullptr);
    ~CurveModulesChooser() override;

    /// 0 is no module.
    unsigned selectedId() const { return m_selectedId; }
    int seriesCount() const { return m_seriesCount; }

public slots:
    void slotFavouritesToggled(bool on);
    void slotModuleSelected(int selected);
    void slotSeriesChanged(int count);

private:
    void fillModules();

    std::unique_ptr<Ui::CurveModulesChooser> m_ui;
    unsigned m_selectedId = 0;
    int m_seriesCount = 1;
};

} // namespace IVCurve
