// The least that a program of this kind is: an empty main window, which ends when it has been painted.

#include "benchmarks/support/FirstPaint.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QToolBar>

int main(int argc, char **argv)
{
    endAfterFirstPaint();
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Action"));
    window.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Action"));
    window.addDockWidget(Qt::LeftDockWidgetArea, new QDockWidget(QStringLiteral("Dock")));
    window.setCentralWidget(new QMdiArea);
    window.resize(1000, 700);
    window.show();
    return QApplication::exec();
}
