#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

/// Stands in for the external datalogger: fetches results from a tester that does not exist, saves them
/// and leaves the path where the program looks for it.
class StandInDialog : public QDialog
{
    Q_OBJECT

public:
    /// `unattended`: nobody is there to click the button or to read what went wrong.
    explicit StandInDialog(bool unattended, QWidget *parent = nullptr);

private:
    void buildUi();
    void download();
    void step();
    void save();

    const bool m_unattended;
    QLabel *m_label = nullptr;
    QProgressBar *m_progress = nullptr;
    QPushButton *m_button = nullptr;
    QTimer m_timer;
};
