#include "app/core/Shell.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QtMath>

namespace {
Shell *current = nullptr;
}

Shell::Shell()
{
    current = this;
}

Shell::~Shell()
{
    // A window that comes back in another language may already have taken the place.
    if (current == this)
        current = nullptr;
}

Shell *Shell::instance()
{
    return current;
}

QWidget *Shell::parentWindow()
{
    return current ? current->window() : nullptr;
}

int Shell::logicalDpiY()
{
    if (const QWidget *window = parentWindow())
        return window->logicalDpiY();
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? qRound(screen->logicalDotsPerInchY()) : 96;
}
