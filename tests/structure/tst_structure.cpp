#include "tests/structure/IncludeGraph.h"
#include "tests/structure/SourceTree.h"
#include "tests/structure/StructureRules.h"
#include "tests/support/TestMain.h"

using namespace StructureRules;

namespace {

const QStringList productFolders{"app", "report", "import", "browser", "curve", "diagram", "tools"};

/// A small tree of its own in a temporary folder.
class SmallTree
{
public:
    explicit SmallTree(const QVector<QPair<QString, QByteArray>> &files)
    {
        for (const auto &file : files)
            writeFile(m_folder.filePath(file.first), file.second);
    }
    operator SourceTree() const { return SourceTree(m_folder.path(), productFolders); }
    QString root() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestStructure : public QObject
{
    Q_OBJECT

private slots:
    void treeIsReadWhole();
    void foldersFormNoCircle();
    void componentsFormNoCircle();
    void floorsHold();
    void includesAreWrittenFromTheRoot();
    void nothingIsConnectedByText();
    void messageBoxesOpenInOnePlace();
    void noSourceOutgrowsItsRoom();
    void scoreboardIsPrinted();

    void commentsAndLiteralsAreNoCode_data();
    void commentsAndLiteralsAreNoCode();
    void soundTreeHasNoFindings();
    void circleOfFoldersIsFound();
    void circleOfComponentsIsFound();
    void circleOfThreeIsOneCircle();
    void headerAndSourceOfOneComponentFormNoCircle();
    void includeOfAHigherFloorIsFound_data();
    void includeOfAHigherFloorIsFound();
    void includeOfAnAllowedFloorIsNotFound_data();
    void includeOfAnAllowedFloorIsNotFound();
    void fileOnNoFloorIsFound();
    void commentedIncludeIsNotFound();
    void includeBesideTheFileIsFound();
    void connectByTextIsFound();
    void openedMessageBoxIsFound_data();
    void openedMessageBoxIsFound();
    void namedMessageBoxIsNotFound_data();
    void namedMessageBoxIsNotFound();
    void sourceOfTooManyLinesIsFound();
    void scoreboardCountsWhatIsThere();
};

namespace {

const SourceTree &product()
{
    static const SourceTree tree(KELMAR_SOURCE_ROOT, productFolders);
    return tree;
}

/// Fails with the findings, if there are any.
void expectNone(const QStringList &findings)
{
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join('\n')));
}

} // namespace

void TestStructure::treeIsReadWhole()
{
    QVERIFY(product().files().size() > 50);
    QVERIFY(product().holds("app/core/Shell.h"));
    QVERIFY(product().holds("browser/ProjectModel.cpp"));
    const auto &files = product().files();
    const auto model = std::find_if(files.begin(), files.end(), [](const SourceFile &file) {
        return file.path == "browser/ProjectModel.cpp";
    });
    QVERIFY(model->includes.contains("app/core/Messages.h"));
    QVERIFY(model->lines > 50);
}

void TestStructure::foldersFormNoCircle()
{
    expectNone(folderCycles(product()));
}

void TestStructure::componentsFormNoCircle()
{
    expectNone(componentCycles(product()));
}

void TestStructure::floorsHold()
{
    expectNone(floorBreaches(product()));
}

void TestStructure::includesAreWrittenFromTheRoot()
{
    expectNone(includesNotFromTheRoot(product()));
}

void TestStructure::nothingIsConnectedByText()
{
    expectNone(textConnects(product()));
}

void TestStructure::messageBoxesOpenInOnePlace()
{
    QCOMPARE(filesThatOpenABox(product()), QStringList("app/core/Messages.cpp"));
}

void TestStructure::noSourceOutgrowsItsRoom()
{
    expectNone(longSources(product()));
}

void TestStructure::scoreboardIsPrinted()
{
    const SourceTree tests(KELMAR_SOURCE_ROOT, {"tests"});
    const QStringList lines = scoreboard(product(), tests);
    QCOMPARE(lines.size(), 11);
    for (const QString &line : lines)
        qInfo().noquote() << line;
}

void TestStructure::commentsAndLiteralsAreNoCode_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("code");
    QTest::newRow("line comment") << "a; // SLOT(b)\nc;"
                                  << "a; \nc;";
    QTest::newRow("block comment") << "a /* SLOT(b)\n * c */ d"
                                   << "a  d";
    QTest::newRow("open comment") << "a /* b"
                                  << "a ";
    QTest::newRow("string") << "f(\"SLOT(b) \\\" // c\") + d"
                            << "f() + d";
    QTest::newRow("comment marks in a string") << "f(\"/*\"); g(\"*/\")"
                                               << "f(); g()";
    QTest::newRow("character") << "f('\"') + g('\\'')"
                               << "f() + g()";
    QTest::newRow("separated digits") << "1'000'000 + f(\"b\")"
                                      << "1'000'000 + f()";
    QTest::newRow("raw string") << "f(R\"x(\"SLOT(b)\")x\") + c"
                                << "f() + c";
    QTest::newRow("quotation mark in a comment") << "a // it's \"\nb"
                                                 << "a \nb";
}

void TestStructure::commentsAndLiteralsAreNoCode()
{
    QFETCH(QString, text);
    QTEST(SourceTree::codeOf(text, false), "code");
}

void TestStructure::soundTreeHasNoFindings()
{
    const SmallTree tree({{"app/core/A.h", "#include <QString>\n"},
                          {"app/core/A.cpp", "#include \"app/core/A.h\"\n"},
                          {"report/B.h", "#include \"app/core/A.h\"\n"},
                          {"app/shell/C.cpp", "#include \"report/B.h\"\n#include \"ui_C.h\"\n"}});
    expectNone(folderCycles(tree));
    expectNone(componentCycles(tree));
    expectNone(floorBreaches(tree));
    expectNone(includesNotFromTheRoot(tree));
    expectNone(textConnects(tree));
    expectNone(filesThatOpenABox(tree));
    expectNone(longSources(tree));
}

void TestStructure::circleOfFoldersIsFound()
{
    // No two components form a circle here, only their folders do.
    const SmallTree tree({{"report/A.h", "#include \"report/items/B.h\"\n"},
                          {"report/items/B.h", ""},
                          {"report/items/C.h", "#include \"report/D.h\"\n"},
                          {"report/D.h", ""}});
    QCOMPARE(folderCycles(tree), QStringList("report report/items"));
    expectNone(componentCycles(tree));
}

void TestStructure::circleOfComponentsIsFound()
{
    const SmallTree tree({{"report/A.h", ""},
                          {"report/A.cpp", "#include \"report/A.h\"\n#include \"report/B.h\"\n"},
                          {"report/B.h", "#include \"report/A.h\"\n"}});
    QCOMPARE(componentCycles(tree), QStringList("report/A report/B"));
    expectNone(folderCycles(tree));
}

void TestStructure::circleOfThreeIsOneCircle()
{
    const SmallTree tree({{"report/A.h", "#include \"report/B.h\"\n"},
                          {"report/B.h", "#include \"report/C.h\"\n"},
                          {"report/C.h", "#include \"report/A.h\"\n"},
                          {"report/D.h", "#include \"report/A.h\"\n"}});
    QCOMPARE(componentCycles(tree), QStringList("report/A report/B report/C"));
    QCOMPARE(IncludeGraph(tree, &SourceFile::component).nodesInCycles(), 3);
}

void TestStructure::headerAndSourceOfOneComponentFormNoCircle()
{
    const SmallTree tree(
        {{"report/A.h", "#include \"report/A.cpp\"\n"}, {"report/A.cpp", "#include \"report/A.h\"\n"}});
    expectNone(componentCycles(tree));
}

void TestStructure::includeOfAHigherFloorIsFound_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QVector<QPair<const char *, const char *>> rows{
        {"app/platform", "app/core"},    {"app/core", "app/document"},   {"app/document", "report"},
        {"report/file", "report/items"}, {"report/file", "report"},      {"report/file", "app/document"},
        {"report/items", "app/shell"},   {"report", "import"},           {"report", "curve/data"},
        {"curve/data", "curve/ui"},      {"curve/data", "app/document"}, {"curve/ui", "diagram"},
        {"diagram", "report"},           {"diagram", "app/dialogs"},     {"import", "browser"},
        {"browser", "report"},           {"browser", "report/items"},    {"browser", "app/shell"},
    };
    for (const auto &row : rows)
        QTest::addRow("%s to %s", row.first, row.second) << QString(row.first) << QString(row.second);
}

void TestStructure::includeOfAHigherFloorIsFound()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const SmallTree tree({{from + "/A.cpp", "#include \"" + to.toUtf8() + "/B.h\"\n"}, {to + "/B.h", ""}});
    QCOMPARE(floorBreaches(tree), QStringList(from + "/A.cpp includes " + to + "/B.h"));
}

void TestStructure::includeOfAnAllowedFloorIsNotFound_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QVector<QPair<const char *, const char *>> rows{
        {"app/core", "app/platform"},    {"app/document", "app/core"}, {"report/file", "app/core"},
        {"report/items", "report/file"}, {"report", "report/items"},   {"report", "app/document"},
        {"curve/ui", "curve/data"},      {"import", "report/items"},   {"import", "report"},
        {"browser", "report/file"},      {"diagram", "app/document"},  {"app/shell", "curve/ui"},
        {"app/dialogs", "report"},       {"tools", "report/file"},
    };
    for (const auto &row : rows)
        QTest::addRow("%s to %s", row.first, row.second) << QString(row.first) << QString(row.second);
}

void TestStructure::includeOfAnAllowedFloorIsNotFound()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const SmallTree tree({{from + "/A.cpp", "#include \"" + to.toUtf8() + "/B.h\"\n"}, {to + "/B.h", ""}});
    expectNone(floorBreaches(tree));
}

void TestStructure::fileOnNoFloorIsFound()
{
    const SmallTree tree({{"curve/A.h", ""}, {"curve/data/B.h", ""}, {"app/main.cpp", ""}});
    QCOMPARE(floorBreaches(tree), QStringList("curve/A.h stands on no floor"));
}

void TestStructure::commentedIncludeIsNotFound()
{
    const SmallTree tree({{"app/core/A.cpp", "// #include \"report/B.h\"\n/*\n#include \"report/B.h\"\n*/\n"},
                          {"report/B.h", ""}});
    expectNone(floorBreaches(tree));
}

void TestStructure::includeBesideTheFileIsFound()
{
    const SmallTree tree({{"report/A.cpp", "#include \"B.h\"\n#include \"items/C.h\"\n#include \"ui_A.h\"\n"},
                          {"report/B.h", ""},
                          {"report/items/C.h", ""}});
    QCOMPARE(includesNotFromTheRoot(tree),
             QStringList({"report/A.cpp includes B.h", "report/A.cpp includes items/C.h"}));
}

void TestStructure::connectByTextIsFound()
{
    const SmallTree tree(
        {{"report/A.cpp", "connect(a, SIGNAL(x()), b, &B::y);\n"},
         {"report/B.cpp", "connect(a, &A::x, b, SLOT (y()));\n"},
         {"report/C.cpp", "connect(a, &A::x, b, &B::y); // not SLOT(y())\nMY_SIGNAL(x);\n"}});
    QCOMPARE(textConnects(tree), QStringList({"report/A.cpp", "report/B.cpp"}));
}

void TestStructure::openedMessageBoxIsFound_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("static call") << QByteArray("QMessageBox::warning(this, a, b);");
    QTest::newRow("object") << QByteArray("QMessageBox box(this);");
    QTest::newRow("object with braces") << QByteArray("QMessageBox box{};");
    QTest::newRow("plain object") << QByteArray("QMessageBox box;");
    QTest::newRow("on the heap") << QByteArray("auto *box = new QMessageBox(this);");
    QTest::newRow("owned") << QByteArray("auto box = std::make_unique<QMessageBox>(this);");
}

void TestStructure::openedMessageBoxIsFound()
{
    QFETCH(QByteArray, code);
    QCOMPARE(filesThatOpenABox(SmallTree({{"report/A.cpp", "void f()\n{\n    " + code + "\n}\n"}})),
             QStringList("report/A.cpp"));
}

void TestStructure::namedMessageBoxIsNotFound_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("icon") << QByteArray("message.icon = QMessageBox::Warning;");
    QTest::newRow("buttons") << QByteArray("message.buttons = QMessageBox::Yes | QMessageBox::No;");
    QTest::newRow("cast") << QByteArray("if (auto *box = qobject_cast<QMessageBox *>(widget))");
    QTest::newRow("reference") << QByteArray("void show(QMessageBox &box);");
}

void TestStructure::namedMessageBoxIsNotFound()
{
    QFETCH(QByteArray, code);
    expectNone(filesThatOpenABox(SmallTree({{"report/A.cpp", code}})));
}

void TestStructure::sourceOfTooManyLinesIsFound()
{
    const SmallTree tree({{"report/A.cpp", QByteArray(599, '\n')},
                          {"report/B.cpp", QByteArray(600, '\n')},
                          {"report/C.h", QByteArray(700, '\n')}});
    QCOMPARE(longSources(tree), QStringList("report/B.cpp has 600 lines"));
}

void TestStructure::scoreboardCountsWhatIsThere()
{
    const SmallTree tree(
        {{"report/A.h", "#include \"report/B.h\"\n"},
         {"report/B.h", "#include \"report/A.h\"\n"},
         {"report/C.cpp", QByteArray(18, '\n') + "QMessageBox box;\nconnect(a, SIGNAL(b));\n"},
         {"report/D.cpp", QByteArray(78, '\n')},
         {"tests/tst_a.cpp", QByteArray(50, '\n')},
         {"tests/fuzz/f.cpp", "int LLVMFuzzerTestOneInput(const char *);\n"},
         {"translations/kelmar_de.ts", "<translation type=\"unfinished\"/>\n"}});
    QStringList figures;
    for (const QString &line : scoreboard(tree, SourceTree(tree.root(), {"tests"})))
        figures.append(line.left(line.indexOf("(goal")).simplified());
    QCOMPARE(figures, QStringList({"folders in include cycles 0", "components in include cycles, % 50.0",
                                   "longest .cpp 78", "90th percentile of .cpp 78", "90th percentile of .h 1",
                                   "product lines 100", "test lines per product line 0.51",
                                   "places that open a message box 1", "files with connects by text 1",
                                   "fuzz targets 1", "unfinished translations 1"}));
}

KELMAR_TEST_MAIN(TestStructure)
#include "tst_structure.moc"
