#include "tests/report/OpenReport.h"

#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"

#include <QtTest>

QString reportPath(const QString &name)
{
    return TestHome::instance()->path(name);
}

QString reportFile(const QByteArray &bytes, const QString &name)
{
    writeFile(reportPath(name), bytes);
    return reportPath(name);
}

KeyboardView::KeyboardView(OpenReport &report) : QGraphicsView(&report.scene)
{
    show();
    QApplication::setActiveWindow(this);
    QVERIFY(QTest::qWaitForWindowActive(this, patience));
    setFocus();
}
