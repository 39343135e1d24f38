#include "app/platform/Platform.h"
#include "tests/support/TestMain.h"

#include <QProcess>

#include <cstdio>
#include <cstring>

/// What the system tells of lists is read once in a process, so each locale is asked about in one of its own:
/// this program, started with an argument.
class TestListSeparator : public QObject
{
    Q_OBJECT

private slots:
    void separatorIsThatOfTheSystemsLocale_data();
    void separatorIsThatOfTheSystemsLocale();
    void defaultLocalePlaysNoPart();
};

void TestListSeparator::separatorIsThatOfTheSystemsLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("separator");
    QTest::newRow("German has a decimal comma") << "de_DE.UTF-8"
                                                << ";";
    QTest::newRow("Spanish too") << "es_ES.UTF-8"
                                 << ";";
    QTest::newRow("English has none") << "en_GB.UTF-8"
                                      << "";
    QTest::newRow("C has none") << "C.UTF-8"
                                << "";
}

void TestListSeparator::separatorIsThatOfTheSystemsLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, separator);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", locale);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--separator"});
    QVERIFY(process.waitForFinished(patience));
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), '<' + separator + '>');
}

void TestListSeparator::defaultLocalePlaysNoPart()
{
    const QString before = Platform::listSeparator();
    const QLocale locale;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString after = Platform::listSeparator();
    QLocale::setDefault(locale);
    QCOMPARE(after, before);
}

int main(int argc, char **argv)
{
    if (argc == 2 && !std::strcmp(argv[1], "--separator"))
        return std::printf("<%s>", qPrintable(Platform::listSeparator())) > 0 ? 0 : 1;
    TestHome home;
    QApplication application(argc, argv);
    TestListSeparator test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_listseparator.moc"
