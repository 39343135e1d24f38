#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class DialogSettings;
}
class QLabel;
class QPushButton;

/// Changes the projects root and puts report favourites back to their pristine state.
class DialogSettings : public QDialog
{
    Q_OBJECT

public:
    explicit DialogSettings(QWidget *parent = nullptr);
    ~DialogSettings() override;

public slots:
    void accept() override;

protected slots:
    void browseProjectsRoot();
    void restoreCHK();
    void restoreIR();
    void restoreATR();
    void restoreVC();

private:
    static void showFavouriteState(const QPushButton *button, QLabel *label, const QString &suffix);
    void restore(QPushButton *button, QLabel *label, const QString &suffix);

    std::unique_ptr<Ui::DialogSettings> m_ui;
};
