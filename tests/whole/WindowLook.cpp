#include "tests/whole/WindowLook.h"

#include "tests/support/AccessibleNames.h"
#include "tests/support/Patience.h"
#include "tests/support/TextRoom.h"
#include "tests/whole/KeyboardReach.h"
#include "tests/whole/WholeProgram.h"

#include <QApplication>
#include <QMenu>
#include <QtTest>

namespace {

void expectNone(const QString &name, const char *what, const QStringList &findings)
{
    QVERIFY2(findings.isEmpty(), qPrintable(name + QStringLiteral(": ") + QLatin1String(what) +
                                            QStringLiteral(":\n") + findings.join(QLatin1Char('\n'))));
}

} // namespace

void WindowLook::at(QWidget *window, const QString &name)
{
    QVERIFY(QTest::qWaitForWindowExposed(window, patience));
    QTest::qWait(50);
    WholeProgram::takePicture(window, name);
    expectNone(name, "no room", TextRoom::clippedTexts(window));
    expectNone(name, "shared keys", KeyboardReach::sharedAccelerators(window));
    expectNone(name, "no name", AccessibleNames::missingIn(window));
}

void WindowLook::atDialog(QWidget *dialog, const QString &name)
{
    at(dialog, name);
    expectNone(name, "out of the Tab key's reach", KeyboardReach::notReachedByTab(dialog));
}

void WindowLook::atMenu(QMenu *menu, const QString &name)
{
    QVERIFY(QTest::qWaitForWindowExposed(menu, patience));
    WholeProgram::takePicture(menu, name);
    QVERIFY2(menu->sizeHint().width() <= menu->width(), qPrintable(name));
    expectNone(name, "shared keys", KeyboardReach::sharedAccelerators(menu));
}

void WindowLook::useColours()
{
    if (qEnvironmentVariable("KELMAR_PALETTE") == QLatin1String("dark"))
        useDarkColours();
}

void WindowLook::useDarkColours()
{
    QPalette dark(QColor(53, 53, 53), QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(dark);
}
