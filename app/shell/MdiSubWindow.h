#pragma once

#include <QMdiSubWindow>

/// The sub-window of one document. It asks the document before it closes.
class MdiSubWindow : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit MdiSubWindow(QWidget *widget, Qt::WindowFlags flags = Qt::WindowFlags());
    ~MdiSubWindow() override;

protected:
    void closeEvent(QCloseEvent *event) override;
};
