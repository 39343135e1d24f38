#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class DialogWelcome;
}

/// Greets the user after the start and can lead to a video tutorial.
class DialogWelcome : public QDialog
{
    Q_OBJECT

public:
    explicit DialogWelcome(QWidget *parent = nullptr);
    ~DialogWelcome() override;

public slots:
    /// Shows nothing and returns 0 when the user does not want to see it any more.
    int exec() override;
    void accept() override;

protected slots:
    void radioPressed();

private:
    std::unique_ptr<Ui::DialogWelcome> m_ui;
};
