#include "app/core/Identity.h"
#include "app/shell/MainWindow.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramGraphicsScene.h"
#include "diagram/DiagramItemType.h"
#include "diagram/InstallationDiagramDocument.h"
#include "tests/support/MenuWatcher.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"
#include "tests/whole/Hands.h"
#include "tests/whole/WholeProgram.h"

#include <QtPrintSupport>
#include <QtTest>
#include <QtWidgets>
#include <QtXml>

namespace {

/// A diagram on the screen and the hand that draws on it, with the events of a real mouse. Places are those
/// of the drawing.
class Drawing
{
public:
    Drawing(MainWindow &window, BoxWatcher &watcher) : m_window(window), m_watcher(watcher) {}

    InstallationDiagramDocument *document() const
    {
        return qobject_cast<InstallationDiagramDocument *>(m_window.activeDocument());
    }
    DiagramGraphicsScene *scene() const { return document()->scene(); }
    QGraphicsView *view() const { return document()->findChild<QGraphicsView *>(); }

    template <typename Item> QList<Item *> all() const
    {
        QList<Item *> found;
        for (QGraphicsItem *item : scene()->items()) {
            if (auto *match = dynamic_cast<Item *>(item))
                found.append(match);
        }
        return found;
    }
    DiagramComponent *component(int type) const
    {
        for (DiagramComponent *component : all<DiagramComponent>()) {
            if (component->type() == type)
                return component;
        }
        return nullptr;
    }
    DiagramConnection *wireAt(const DiagramComponent *a, const DiagramComponent *b) const
    {
        for (DiagramConnection *wire : all<DiagramConnection>()) {
            if (wire->endA().component() == a && wire->endB().component() == b)
                return wire;
        }
        return nullptr;
    }

    void move(const QPointF &place)
    {
        QTest::mouseMove(handle(), at(place));
        QTest::qWait(1);
    }
    void click(const QPointF &place)
    {
        move(place);
        QTest::mouseClick(handle(), Qt::LeftButton, Qt::NoModifier, at(place));
        // Two clicks in a row are no double click.
        QTest::qWait(QApplication::doubleClickInterval() + 10);
    }
    void drag(const QPointF &from, const QPointF &to)
    {
        move(from);
        QTest::mousePress(handle(), Qt::LeftButton, Qt::NoModifier, at(from));
        constexpr int steps = 8;
        for (int i = 1; i <= steps; ++i)
            move(from + (to - from) * i / steps);
        QTest::mouseRelease(handle(), Qt::LeftButton, Qt::NoModifier, at(to));
    }
    void choose(const QPointF &place, const QString &entry)
    {
        MenuWatcher menu(entry);
        move(place);
        QTest::mousePress(handle(), Qt::RightButton, Qt::NoModifier, at(place));
        QTest::mouseRelease(handle(), Qt::RightButton, Qt::NoModifier, at(place));
        QTRY_VERIFY2(menu.menus() > 0, qPrintable(entry));
        QVERIFY2(menu.texts().contains(entry), qPrintable(menu.texts().join(',')));
    }
    void chooseAndAnswer(const QPointF &place, const QString &entry, const QString &caption)
    {
        m_watcher.expectDialog("DialogComponentSettings", [caption](QWidget *dialog) {
            auto *edit = dialog->findChild<QPlainTextEdit *>();
            QTest::keyClicks(edit, caption);
            QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                              Qt::LeftButton);
        });
        choose(place, entry);
    }
    void wire(const QPointF &from, const QPointF &to)
    {
        click(from);
        click(to);
    }
    /// The tool button with this tip: two of the actions have the same name.
    void clickTool(const QString &toolTip)
    {
        for (QToolButton *button : document()->findChildren<QToolButton *>()) {
            if (button->defaultAction() && button->defaultAction()->toolTip() == toolTip) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL(qPrintable(toolTip));
    }
    QImage picture() const
    {
        const QRectF part = scene()->itemsBoundingRect();
        QImage image(part.size().toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene()->render(&painter, QRectF(), part);
        return image;
    }

private:
    QWindow *handle() const { return m_window.windowHandle(); }
    QPoint at(const QPointF &place) const
    {
        const QPoint inView = view()->mapFromScene(place);
        if (!view()->viewport()->rect().contains(inView))
            QTest::qFail("a place out of sight", __FILE__, __LINE__);
        return view()->viewport()->mapTo(&m_window, inView);
    }

    MainWindow &m_window;
    BoxWatcher &m_watcher;
};

QStringList elements(const QString &path)
{
    QDomDocument file;
    if (!file.setContent(readFile(path)))
        QTest::qFail("no XML", __FILE__, __LINE__);
    QStringList all;
    const QDomNodeList children = file.documentElement().childNodes();
    for (int i = 0; i < children.size(); ++i) {
        QString text;
        QTextStream stream(&text);
        children.at(i).save(stream, 0);
        all.append(text);
    }
    return all;
}

QStringList componentsOf(const QStringList &elements)
{
    QStringList kept;
    for (const QString &element : elements) {
        if (!element.startsWith(QLatin1String("<connection ")))
            kept.append(element);
    }
    return kept;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QImage sheet(const QString &pdf)
{
    const QString base = TestHome::instance()->path(QStringLiteral("sheet"));
    if (QProcess::execute(QStringLiteral("pdftoppm"),
                          {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("80"),
                           QStringLiteral("-singlefile"), pdf, base}) != 0)
        QTest::qFail("no sheet", __FILE__, __LINE__);
    return QImage(base + QStringLiteral(".png"));
}

} // namespace

/// A diagram drawn, saved, found again and printed in the whole program.
class TestDiagramJob : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aDiagramIsDrawnSavedFoundAgainAndPrinted();
    void theBatchProgramPrintsTheSameSheet();

private:
    void makeDiagram(MainWindow &window);
    void addComponents(Drawing &drawing);
    void editCaptions(Drawing &drawing);
    void placeWires(Drawing &drawing);
    void moveThings(Drawing &drawing);
    void deleteThings(Drawing &drawing);
    void expectNothingOverlaps(const Drawing &drawing);
    void saveCloseAndReopen(MainWindow &window, Drawing &drawing);
    void print(MainWindow &window, BoxWatcher &watcher, Drawing &drawing);

    QString m_root;
    QString m_file;
    QString m_pdf;
};

void TestDiagramJob::initTestCase()
{
    m_root = TestHome::instance()->projectsRoot();
    m_file = m_root + QStringLiteral("/Installation Diagram.kelid");
    m_pdf = TestHome::instance()->path(QStringLiteral("diagram.pdf"));
    QVERIFY(QDir().mkpath(m_root));
    QSettings store(Identity::organisationName(), Identity::applicationName());
    store.setValue("locale", "en");
    store.setValue("Directories/RootDir", m_root);
    store.setValue("Welcome/show", false);
}

void TestDiagramJob::aDiagramIsDrawnSavedFoundAgainAndPrinted()
{
    bool worked = false;
    WholeProgram::run(
        {}, [](BoxWatcher &) {},
        [&](MainWindow &window, BoxWatcher &watcher, int) {
            // Room for the whole drawing.
            window.showMaximized();
            QTest::qWait(100);
            makeDiagram(window);
            Drawing drawing(window, watcher);
            for (const auto &step :
                 {&TestDiagramJob::addComponents, &TestDiagramJob::editCaptions, &TestDiagramJob::placeWires,
                  &TestDiagramJob::moveThings, &TestDiagramJob::deleteThings}) {
                (this->*step)(drawing);
                if (QTest::currentTestFailed())
                    return;
            }
            saveCloseAndReopen(window, drawing);
            print(window, watcher, drawing);
            worked = true;
        });
    QVERIFY(worked);
}

void TestDiagramJob::makeDiagram(MainWindow &window)
{
    auto *tree = window.findChild<QTreeView *>(QStringLiteral("treeView"));
    Hands::chooseFromMenu(&window, window.findChild<QMenu *>(QStringLiteral("menuFile")),
                          window.findChild<QAction *>(QStringLiteral("actionNewInstallationDiagram")));
    QTRY_VERIFY(tree->findChild<QLineEdit *>());
    QTest::keyClick(tree->findChild<QLineEdit *>(), Qt::Key_Return);
    QTRY_VERIFY(QFileInfo::exists(m_file));
    auto *model = qobject_cast<QFileSystemModel *>(tree->model());
    QTRY_VERIFY(model->index(m_file).isValid());
    Hands::doubleClick(tree, model->index(m_file));
    QTRY_VERIFY(window.activeDocument());
    QVERIFY(qobject_cast<InstallationDiagramDocument *>(window.activeDocument()));
}

void TestDiagramJob::addComponents(Drawing &drawing)
{
    drawing.choose({-300, -200}, "Add PV Panel");
    drawing.choose({-200, -200}, "Add PV Panel");
    drawing.chooseAndAnswer({0, -200}, "Add DC Isolator", "DC switch");
    drawing.chooseAndAnswer({140, -220}, "Add Invertor", "6 kW");
    drawing.chooseAndAnswer({190, 0}, "Add AC Isolator", "AC switch");
    drawing.chooseAndAnswer({0, 20}, "Add Generation Meter", "Meter");
    drawing.chooseAndAnswer({-250, 100}, "Add Distribution Board", "Board");
    drawing.chooseAndAnswer({-300, -320}, "Add Label", "South roof");
    QCOMPARE(drawing.all<DiagramComponent>().size(), 8);
    QCOMPARE(drawing.component(InverterType)->pos(), QPointF(140, -220));
    QCOMPARE(drawing.component(InverterType)->label()->text(), QString("6 kW"));
    QVERIFY(drawing.document()->isModified());
}

void TestDiagramJob::editCaptions(Drawing &drawing)
{
    DiagramLabel *inverter = drawing.component(InverterType)->label();
    drawing.chooseAndAnswer(inverter->sceneBoundingRect().center(), "Set Label Text", "Inverter 6 kW");
    QCOMPARE(inverter->text(), QString("Inverter 6 kW"));
    const QVector<QPair<int, QPointF>> places{{DcIsolatorType, {-25, -240}},
                                              {AcIsolatorType, {260, 10}},
                                              {GenerationMeterType, {20, 90}},
                                              {DistributionBoardType, {-210, 190}},
                                              {NoteType, {-100, -320}}};
    for (const auto &place : places) {
        DiagramLabel *label = drawing.component(place.first)->label();
        const QPointF before = label->pos();
        drawing.drag(before + QPointF(6, 6), place.second + QPointF(6, 6));
        QVERIFY((label->pos() - place.second).manhattanLength() < 1);
    }
    QCOMPARE(drawing.component(DcIsolatorType)->pos(), QPointF(0, -200));
    drawing.choose(drawing.component(DistributionBoardType)->label()->sceneBoundingRect().center(),
                   "Delete Label");
    QVERIFY(drawing.component(DistributionBoardType));
    QVERIFY(!drawing.component(DistributionBoardType)->label());
}

void TestDiagramJob::placeWires(Drawing &drawing)
{
    drawing.clickTool("Wire");
    drawing.wire({-275, -180}, {-195, -180});
    drawing.wire({-175, -180}, {5, -180});
    // A short one that will be deleted.
    drawing.wire({-300, 250}, {-200, 300});
    drawing.clickTool("DC cable");
    drawing.wire({35, -180}, {150, -170});
    drawing.clickTool("AC cable");
    drawing.wire({215, -130}, {218, 5});
    drawing.wire({195, 30}, {110, 50});
    drawing.wire({10, 50}, {-180, 105});
    // The right button ends it.
    drawing.choose({-300, 50}, "Add PV Panel");
    QCOMPARE(drawing.scene()->mode(), int(DiagramGraphicsScene::EditMode));
    QCOMPARE(drawing.all<DiagramConnection>().size(), 7);
    const DiagramConnection *dc =
        drawing.wireAt(drawing.component(DcIsolatorType), drawing.component(InverterType));
    QVERIFY(dc);
    QCOMPARE(dc->type(), int(DcConnectionType));
    QCOMPARE(dc->endA().pos().x(), 40.0);
    QCOMPARE(dc->endB().pos().x(), 140.0);
    const DiagramConnection *ac =
        drawing.wireAt(drawing.component(GenerationMeterType), drawing.component(DistributionBoardType));
    QVERIFY(ac);
    QCOMPARE(ac->type(), int(AcConnectionType));
    QCOMPARE(ac->endB().pos().y(), 100.0);
    int single = 0;
    for (const DiagramConnection *wire : drawing.all<DiagramConnection>())
        single += wire->type() == SingleConnectionType ? 1 : 0;
    QCOMPARE(single, 3);
}

void TestDiagramJob::moveThings(Drawing &drawing)
{
    const DiagramComponent *inverter = drawing.component(InverterType);
    const DiagramConnection *dc = drawing.wireAt(drawing.component(DcIsolatorType), inverter);
    const QPointF caption = inverter->label()->pos();
    const QPointF end = dc->endB().pos();
    drawing.drag(inverter->pos() + QPointF(10, 10), inverter->pos() + QPointF(50, 40));
    QCOMPARE(inverter->pos(), QPointF(180, -190));
    QCOMPARE(inverter->label()->pos(), caption + QPointF(40, 30));
    QCOMPARE(dc->endB().pos(), end + QPointF(40, 30));
    QCOMPARE(dc->route().points().last(), dc->endB().pos());
    // An end to another side.
    drawing.drag(dc->endB().pos(), {255, -175});
    QCOMPARE(dc->endB().component(), inverter);
    QCOMPARE(dc->endB().side(), int(TopSide));
    QCOMPARE(dc->endB().pos(), QPointF(255, -190));
    // The free wire as a whole.
    DiagramConnection *free = drawing.wireAt(nullptr, nullptr);
    QVERIFY(free);
    const QVector<QPointF> route = free->route().points();
    const QPointF grip = (route.at(1) + route.at(2)) / 2;
    const QPointF first = route.first();
    drawing.drag(grip, grip + QPointF(20, -30));
    QCOMPARE(free->endA().pos(), first + QPointF(20, -30));
}

void TestDiagramJob::deleteThings(Drawing &drawing)
{
    const QVector<QPointF> route = drawing.wireAt(nullptr, nullptr)->route().points();
    drawing.choose((route.at(1) + route.at(2)) / 2, "Delete Connection");
    QCOMPARE(drawing.all<DiagramConnection>().size(), 6);
    QVERIFY(!drawing.wireAt(nullptr, nullptr));
    QCOMPARE(drawing.all<DiagramComponent>().size(), 9);
    drawing.choose({-290, 60}, "Delete PV Panel");
    QCOMPARE(drawing.all<DiagramComponent>().size(), 8);
}

/// Stacking turns with each save, so a picture can only stay the same where nothing lies over anything else.
/// A caption may lie on its own component: captions are always on top.
void TestDiagramJob::expectNothingOverlaps(const Drawing &drawing)
{
    const QList<DiagramComponent *> components = drawing.all<DiagramComponent>();
    for (const DiagramComponent *one : components) {
        for (const DiagramComponent *other : components) {
            if (one == other)
                continue;
            QVERIFY(!one->sceneBoundingRect().intersects(other->sceneBoundingRect()));
            if (!one->label())
                continue;
            const QRectF caption = one->label()->sceneBoundingRect();
            QVERIFY(!caption.intersects(other->sceneBoundingRect()));
            QVERIFY(!other->label() || !caption.intersects(other->label()->sceneBoundingRect()));
        }
    }
}

void TestDiagramJob::saveCloseAndReopen(MainWindow &window, Drawing &drawing)
{
    expectNothingOverlaps(drawing);
    for (const DiagramConnection *wire : drawing.all<DiagramConnection>())
        QVERIFY(wire->endA().component() && wire->endB().component());
    const QImage before = drawing.picture();
    WholeProgram::takePicture(&window, QStringLiteral("diagram"));
    Hands::press(&window, Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!drawing.document()->isModified());
    const QStringList saved = elements(m_file);
    QCOMPARE(saved.size(), 14);
    auto *tabs = window.findChild<QMdiArea *>(QStringLiteral("mdiArea"))->findChild<QTabBar *>();
    auto *closeButton = tabs->tabButton(0, QTabBar::RightSide);
    QTest::mouseClick(closeButton ? closeButton : tabs->tabButton(0, QTabBar::LeftSide), Qt::LeftButton);
    QTRY_VERIFY(!window.activeDocument());

    auto *tree = window.findChild<QTreeView *>(QStringLiteral("treeView"));
    auto *model = qobject_cast<QFileSystemModel *>(tree->model());
    Hands::click(tree, model->index(m_file));
    Hands::press(&window, Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(drawing.document());
    QCOMPARE(drawing.picture(), before);
    expectNothingOverlaps(drawing);
    for (const DiagramConnection *wire : drawing.all<DiagramConnection>())
        QVERIFY(wire->endA().component() && wire->endB().component());
    drawing.document()->save();
    const QStringList again = elements(m_file);
    QCOMPARE(sorted(again), sorted(saved));
    QStringList reversed = componentsOf(saved);
    std::reverse(reversed.begin(), reversed.end());
    QCOMPARE(componentsOf(again), reversed);
}

void TestDiagramJob::print(MainWindow &window, BoxWatcher &watcher, Drawing &drawing)
{
    watcher.expectFileDialog(m_pdf);
    drawing.view()->setFocus();
    Hands::press(&window, Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(QFileInfo::exists(m_pdf));
    const QString printed = TestHome::instance()->path(QStringLiteral("printed.pdf"));
    watcher.expectDialog("QPrintDialog", [printed](QWidget *widget) {
        auto *dialog = qobject_cast<QPrintDialog *>(widget);
        dialog->printer()->setOutputFileName(printed);
        dialog->done(QDialog::Accepted);
    });
    Hands::clickToolButton(&window, QStringLiteral("actionPrint"));
    QTRY_VERIFY(QFileInfo::exists(printed));
    QCOMPARE(sheet(printed), sheet(m_pdf));
}

void TestDiagramJob::theBatchProgramPrintsTheSameSheet()
{
    const QString pdf = TestHome::instance()->path(QStringLiteral("batch.pdf"));
    QProcess batch;
    batch.start(QStringLiteral(KELMAR_BATCH),
                {QStringLiteral("pdf"), m_file, pdf, QStringLiteral("--language"), QStringLiteral("en")});
    QVERIFY(batch.waitForFinished(patience));
    QVERIFY2(batch.exitCode() == 0, batch.readAllStandardError());
    QVERIFY(!sheet(pdf).isNull());
    QCOMPARE(sheet(pdf), sheet(m_pdf));
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    QVERIFY(text.waitForFinished(patience));
    const QString words = QString::fromUtf8(text.readAllStandardOutput());
    for (const char *word : {"Created by Kelmar.", "South roof", "Inverter 6 kW", "DC switch", "Meter"})
        QVERIFY2(words.contains(QLatin1String(word)), word);
    QProcess refused;
    refused.start(QStringLiteral(KELMAR_BATCH), {QStringLiteral("pdf"), m_file, pdf});
    QVERIFY(refused.waitForFinished(patience));
    QCOMPARE(refused.exitCode(), 1);
}

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    TestHome home;
    TestDiagramJob test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_diagramjob.moc"
