#include "app/document/DocumentWithToolbar.h"
#include "tests/support/TestMain.h"

#include <QAction>
#include <QScrollArea>
#include <QSignalSpy>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

class Document : public DocumentWithToolbar
{
public:
    using DocumentWithToolbar::DocumentWithToolbar;
    using DocumentWithToolbar::scrollArea;
    using DocumentWithToolbar::toolBar;

    void addActions()
    {
        addToolActions({
            {&copy, "actionCopy", ":res/toolButtons/context-copy.png", "Copy", "Ctrl+C", true, false},
            {&wire, "actionWire", ":res/toolButtons/wire.png", "Wire", "", false, true},
        });
    }

    QAction *copy = nullptr;
    QAction *wire = nullptr;
};

} // namespace

class TestDocumentWithToolbar : public QObject
{
    Q_OBJECT

private slots:
    void toolBarStandsAboveTheScrollArea();
    void barAndAreaFillTheDocument();
    void toolBarCannotBeTornOff();
    void actionsStandAsTheirRowsSay();
    void toolButtonsTakeTheKeyboardAndShowOneGround();
    void partsGoWithTheDocument();
};

void TestDocumentWithToolbar::toolBarStandsAboveTheScrollArea()
{
    const Document document("/jobs/site.kelir");
    auto *layout = qobject_cast<QVBoxLayout *>(document.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), document.toolBar());
    QCOMPARE(layout->itemAt(1)->widget(), document.scrollArea());
}

void TestDocumentWithToolbar::barAndAreaFillTheDocument()
{
    Document document("/jobs/site.kelir");
    QCOMPARE(document.layout()->spacing(), 0);
    QCOMPARE(document.layout()->contentsMargins(), QMargins());
    QCOMPARE(document.scrollArea()->frameShape(), QFrame::NoFrame);
    QVERIFY(document.scrollArea()->widgetResizable());
    document.resize(300, 200);
    document.show();
    QVERIFY(QTest::qWaitForWindowExposed(&document, patience));
    QCOMPARE(document.toolBar()->geometry().topLeft(), QPoint());
    QCOMPARE(document.toolBar()->geometry().bottom() + 1, document.scrollArea()->geometry().top());
    QCOMPARE(document.scrollArea()->geometry().bottomRight(), QPoint(299, 199));
}

void TestDocumentWithToolbar::toolBarCannotBeTornOff()
{
    const Document document("/jobs/site.kelir");
    QVERIFY(!document.toolBar()->isFloatable());
    QCOMPARE(document.toolBar()->styleSheet(), QString("background-image: url(:/images/toolbar_bg.png);"));
}

void TestDocumentWithToolbar::actionsStandAsTheirRowsSay()
{
    Document document("/jobs/site.kelir");
    document.addActions();
    const QList<QAction *> actions = document.toolBar()->actions();
    QCOMPARE(actions.size(), 3);
    QCOMPARE(actions.at(0), document.copy);
    QVERIFY(actions.at(1)->isSeparator());
    QCOMPARE(actions.at(2), document.wire);
    QCOMPARE(document.copy->objectName(), QString("actionCopy"));
    QCOMPARE(document.copy->text(), QString("Copy"));
    QCOMPARE(document.copy->toolTip(), QString("Copy"));
    QCOMPARE(document.copy->shortcut(), QKeySequence("Ctrl+C"));
    QVERIFY(document.copy->isEnabled());
    QVERIFY(document.wire->shortcut().isEmpty());
    QVERIFY(!document.wire->isEnabled());
}

void TestDocumentWithToolbar::toolButtonsTakeTheKeyboardAndShowOneGround()
{
    Document document("/jobs/site.kelir");
    document.addActions();
    document.wire->setEnabled(true);
    document.show();
    QApplication::setActiveWindow(&document);
    QVERIFY(QTest::qWaitForWindowActive(&document, patience));
    QSignalSpy pressed(document.wire, &QAction::triggered);
    document.toolBar()->widgetForAction(document.copy)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), document.toolBar()->widgetForAction(document.wire));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(pressed.count(), 1);

    document.copy->setIcon(QIcon());
    document.copy->setText(QString());
    const QRect button = document.toolBar()->widgetForAction(document.copy)->geometry();
    const QImage bar = document.toolBar()->grab().toImage();
    const int y = button.center().y();
    QCOMPARE(bar.pixelColor(button.left() + 3, y), bar.pixelColor(document.toolBar()->width() - 2, y));
}

void TestDocumentWithToolbar::partsGoWithTheDocument()
{
    auto document = std::make_unique<Document>("/jobs/site.kelir");
    const QPointer<QToolBar> bar = document->toolBar();
    const QPointer<QScrollArea> area = document->scrollArea();
    const QPointer<QLayout> layout = document->layout();
    QStringList order;
    connect(layout, &QObject::destroyed, this, [&order] { order.append("layout"); });
    connect(bar, &QObject::destroyed, this, [&order] { order.append("bar"); });
    connect(area, &QObject::destroyed, this, [&order] { order.append("area"); });
    document.reset();
    QCOMPARE(order, QStringList({"layout", "bar", "area"}));
    QVERIFY(!bar && !area && !layout);
}

KELMAR_TEST_MAIN(TestDocumentWithToolbar)
#include "tst_documentwithtoolbar.moc"
