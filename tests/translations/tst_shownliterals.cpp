#include "tests/structure/SourceTree.h"
#include "tests/support/TestMain.h"
#include "tests/translations/ShownLiterals.h"

namespace {

struct KnownText
{
    QString file;
    QString beginning; ///< of the literal
    const char *reason;
};

/// What looks like a text for the user and stays as it is in every language.
const QVector<KnownText> &knownTexts()
{
    static const char name[] = "a name";
    static const char fileName[] = "a file name, chosen by the session's language, not by its catalogue";
    static const char commandLine[] = "the command line is English, as its options are";
    static const char column[] = "what the tester calls a column of its file";
    static const char statement[] = "a statement for the database, or a name in it";
    static const char keys[] = "the same keys in every language";
    static const char results[] = "the path by which an open results document is found; its tab shows it";
    static const char failure[] = "a failure of the program, not of the user's, gone at once";
    static const QVector<KnownText> texts{
        {"app/batch/Batch.cpp", "usage: kelmar-batch", commandLine},
        {"app/batch/Batch.cpp", "import-results needs FILE.csv", commandLine},
        {"app/batch/Batch.cpp", "\"%1\" is no list of rows.", commandLine},
        {"app/batch/Batch.cpp", "pdf needs DOCUMENT", commandLine},
        {"app/batch/Batch.cpp", "\"%1\" is no command.", commandLine},
        {"app/batch/Batch.cpp", "import-curves needs FILE.csv", commandLine},
        {"app/batch/Batch.cpp", "import-modules needs TABLE", commandLine},
        {"app/batch/Batch.cpp", "plot needs FILE.kelcrv", commandLine},
        {"app/batch/Batch.cpp", "curve-report needs FILE.kelcrv", commandLine},
        {"app/batch/Batch.cpp", "export-points needs FILE.kelcrv", commandLine},
        {"app/batch/Batch.cpp", "\"%1\" is no list of strings.", commandLine},
        {"app/batch/Batch.cpp", "\"%1\" is no list of views.", commandLine},
        {"app/batch/Batch.cpp", "\"%1\" is no kind of points.", commandLine},
        {"app/core/DocumentType.cpp", "Search Results", results},
        {"app/core/Fonts.cpp", "Liberation Sans", name},
        {"app/core/Fonts.cpp", "Microsoft Sans Serif", name},
        {"app/core/Identity.cpp", "Kelmar Projects", name},
        {"app/core/Identity.cpp", "Varnhold Solar Datalogger", name},
        {"app/core/Language.cpp", "Prüfbericht Besichtigung.kelir", fileName},
        {"app/core/Language.cpp", "Prüfbericht PV-Generator.kelatr", fileName},
        {"app/core/Language.cpp", "Inspection Report.kelir", fileName},
        {"app/core/Language.cpp", "Array Test Report.kelatr", fileName},
        {"app/core/Language.cpp", "Verification Certificate.kelvc", fileName},
        {"app/core/Language.cpp", "Installation Diagram.kelid", fileName},
        {"app/core/Language.cpp", "Curve Data.kelcrv", fileName},
        {"app/dialogs/DialogAbout.ui", "About",
         "a stand-in: the class sets the title with the program's name"},
        {"app/shell/MainWindow.ui", "Ctrl+O", keys},
        {"app/shell/MainWindow.ui", "Ctrl+S", keys},
        {"app/shell/MainWindow.ui", "Kelmar", name},
        {"browser/FoundFilesModel.cpp", "dd/MM/yyyy hh:mm", "a pattern for a date"},
        {"browser/SearchResultsDocument.h", "Search Results", results},
        {"import/ResultsImporter.cpp", "Riso (MOhm)", column},
        {"import/ResultsImporter.cpp", "-Riso (MOhm)", column},
        {"curve/data/CurveTable.cpp", "CREATE TABLE", statement},
        {"curve/data/CurveGraphModel.cpp", "invalid unordered_map<K,", failure},
        {"curve/data/CurveTable.cpp", "ALTER TABLE Curves ADD C", statement},
        {"curve/data/ModuleDatabase.cpp", "modules.db", statement},
        {"curve/ui/CurveDocument.cpp", "CSV Files (*.csv)", "a filter that is the same in every language"},
        {"curve/ui/CurveReport.cpp", "<td style=", "a cell of the report, without words"},
        {"curve/ui/CurveReport.cpp", "PV Array Curve Report.html", fileName},
        {"curve/ui/TrackerText.cpp", "<font color=%1>%2: %3V", "symbols of units"},
        {"curve/data/ModuleTable.cpp", ") ORDER BY Description ;", statement},
        {"curve/data/TesterCurveFile.cpp", "Rpe (Ohm", column},
        {"curve/data/TesterCurveFile.cpp", "Voc (VDC", column},
        {"curve/data/TesterCurveFile.cpp", "Isc (ADC", column},
        {"curve/data/TesterCurveFile.cpp", "Riso (MOhm", column},
        {"curve/data/TesterCurveFile.cpp", "Iclamp (Amp", column},
        {"curve/data/TreeNodeTable.cpp", " ORDER BY ParentNodeID A", statement},
        {"curve/data/TreeNodeTable.cpp", "ParentNodeID IS NULL", statement},
        {"app/shell/LanguageMenu.cpp", "English", "languages are called by their own names"},
        {"app/shell/MainWindow.cpp", "Exception thrown in MainWindow::import(): ", failure},
        {"app/shell/MainWindow.cpp", "An unknown exception has been thrown", failure},
    };
    return texts;
}

/// Untranslated texts of the product, as pairs of file and text.
QVector<QPair<QString, QString>> found()
{
    const QStringList folders{"app", "report", "import", "browser", "curve", "diagram"};
    const QString root = KELMAR_SOURCE_ROOT;
    QVector<QPair<QString, QString>> all;
    const SourceTree tree(root, folders);
    for (const SourceFile &file : tree.files()) {
        const QString source = QString::fromUtf8(readFile(root + '/' + file.path));
        for (const QString &text : ShownLiterals::untranslatedIn(source))
            all.append({file.path, text});
    }
    for (const QString &folder : folders) {
        QDirIterator walk(root + '/' + folder, {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = walk.next();
            for (const QString &text : ShownLiterals::untranslatedInForm(readFile(path)))
                all.append({path.mid(root.size() + 1), text});
        }
    }
    return all;
}

bool isKnown(const QPair<QString, QString> &one)
{
    return std::any_of(knownTexts().begin(), knownTexts().end(), [&one](const KnownText &known) {
        return known.file == one.first && one.second.startsWith(known.beginning);
    });
}

} // namespace

class TestShownLiterals : public QObject
{
    Q_OBJECT

private slots:
    void everyTextForTheUserCanBeTranslated();
    void everyKnownTextIsStillThere();

    void untranslatedTextIsFound_data();
    void untranslatedTextIsFound();
    void whatIsNoTextForTheUserIsNotFound_data();
    void whatIsNoTextForTheUserIsNotFound();
    void literalsSideBySideAreOne();
    void textOfAFormThatIsKeptFromTranslationIsFound();
};

void TestShownLiterals::everyTextForTheUserCanBeTranslated()
{
    QStringList findings;
    for (const auto &one : found()) {
        if (!isKnown(one))
            findings.append(one.first + ": " + one.second);
    }
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join('\n')));
}

void TestShownLiterals::everyKnownTextIsStillThere()
{
    const auto all = found();
    for (const KnownText &known : knownTexts()) {
        const bool there = std::any_of(all.begin(), all.end(), [&known](const QPair<QString, QString> &one) {
            return known.file == one.first && one.second.startsWith(known.beginning);
        });
        QVERIFY2(there, qPrintable(known.file + ": " + known.beginning));
        QVERIFY(*known.reason);
    }
}

void TestShownLiterals::untranslatedTextIsFound_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("word in a setter") << "label->setText(\"Undo\");"
                                      << "Undo";
    QTest::newRow("wrapped") << "setWindowTitle(QStringLiteral(\"Import - %1\").arg(name));"
                             << "Import - %1";
    QTest::newRow("argument of a translated text")
        << "label->setText(tr(\"%1.\").arg(QLatin1String(\"none\")));"
        << "none";
    QTest::newRow("either of two") << "a->setToolTip(b ? tr(\"Cut\") : QString(\"Copy\"));"
                                   << "Copy";
    QTest::newRow("new object") << "auto *a = new QAction(QIcon(\":/a.png\"), \"Print\", this);"
                                << "Print";
    QTest::newRow("object") << "QLabel label(\"Name\", this);"
                            << "Name";
    QTest::newRow("owned") << "auto a = std::make_unique<QLabel>(\"Name\");"
                           << "Name";
    QTest::newRow("list") << "box->addItems({\"one\"});"
                          << "one";
    QTest::newRow("member") << "message.text = QStringLiteral(\"Gone\");"
                            << "Gone";
    QTest::newRow("sum") << "message.informativeText += path + \" gone\";"
                         << " gone";
    QTest::newRow("sentence anywhere") << "const char *const texts[] = {\"It is done.\"};"
                                       << "It is done.";
    QTest::newRow("after characters") << "f('\"', '\\'', 1'000); label->setText(\"Undo\"); // '"
                                      << "Undo";
    QTest::newRow("after a translated text") << "f(tr(\"a b\")); g(\"that is it\");"
                                             << "that is it";
    QTest::newRow("raw") << "label->setText(R\"(say \"no\")\");"
                         << "say \"no\"";
    QTest::newRow("in a lambda") << "connect(a, b, c, [this] { show(\"It went wrong\"); });"
                                 << "It went wrong";
}

void TestShownLiterals::untranslatedTextIsFound()
{
    QFETCH(QString, code);
    QFETCH(QString, text);
    QCOMPARE(ShownLiterals::untranslatedIn("#include \"a b\"\nvoid f()\n{\n    " + code + "\n}\n"),
             QStringList(text));
}

void TestShownLiterals::whatIsNoTextForTheUserIsNotFound_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("translated") << "label->setText(tr(\"Undo it now\", \"a b\"));";
    QTest::newRow("translated by a class") << "message.text = Text::tr(\"Undo it\").arg(path);";
    QTest::newRow("translated free") << "QCoreApplication::translate(\"A\", \"Undo it\")";
    QTest::newRow("marked for translation") << "{QT_TRANSLATE_NOOP(\"A\", \"Undo it now\"), 1}";
    QTest::newRow("only values") << "setWindowTitle(QStringLiteral(\"%1 *\").arg(name));";
    QTest::newRow("comment") << "// label->setText(\"Undo it\");";
    QTest::newRow("resource") << "label->setText(\":/res/forms/Undo.txt\");";
    QTest::newRow("object name") << "label->setObjectName(\"Undo\");";
    QTest::newRow("style sheet") << "setStyleSheet(QStringLiteral(\"color: red\").arg(a));";
    QTest::newRow("query") << "run(\"SELECT a FROM b WHERE c;\");";
    QTest::newRow("markup") << "edit->setHtml(QStringLiteral(\"<center>%1</center>\").arg(lines));";
    QTest::newRow("last words") << "qFatal(\"there is no such type\");";
    QTest::newRow("compile-time check") << "static_assert(a == b, \"one row for each\");";
    QTest::newRow("some variable") << "QString text = QStringLiteral(\"Undo\");";
    QTest::newRow("comparison") << "if (message.text == QLatin1String(\"Undo\"))";
    QTest::newRow("statement after") << "message.text = tr(\"a\"); f(\"Undo\");";
    QTest::newRow("icon of an action") << "new QAction(QIcon(\"icons/undo.png\"), tr(\"Undo\"), this);";
}

void TestShownLiterals::whatIsNoTextForTheUserIsNotFound()
{
    QFETCH(QString, code);
    QCOMPARE(ShownLiterals::untranslatedIn("void f()\n{\n    " + code + "\n}\n"), QStringList());
}

void TestShownLiterals::literalsSideBySideAreOne()
{
    const auto literals = ShownLiterals::literalsOf("f(\"a \"\n  \"b\\n\", \"c\")");
    QCOMPARE(literals.size(), 2);
    QCOMPARE(literals.at(0).text, QString("a b\n"));
    QCOMPARE(literals.at(0).calls, (QStringList{"f", QString()}));
    QCOMPARE(literals.at(1).text, QString("c"));
}

void TestShownLiterals::textOfAFormThatIsKeptFromTranslationIsFound()
{
    QCOMPARE(ShownLiterals::untranslatedInForm("<ui><a><string>Open</string></a>"
                                               "<b><string notr=\"true\">Close</string></b>"
                                               "<c><string notr=\"true\">%1</string></c>"
                                               "<d><string notr=\"true\"/></d>"
                                               "<property name=\"styleSheet\">"
                                               "<string notr=\"true\">color: red</string></property>"
                                               "<property name=\"text\">"
                                               "<string notr=\"true\">Go</string></property></ui>"),
             QStringList({"Close", "Go"}));
}

KELMAR_TEST_MAIN(TestShownLiterals)
#include "tst_shownliterals.moc"
