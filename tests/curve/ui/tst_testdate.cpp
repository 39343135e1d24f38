#include "curve/ui/TestDate.h"
#include "tests/support/TestMain.h"

#include <QProcess>

#include <cstdio>

/// The system's locale is what the process was started with, so each case is a process of its own.
class TestTestDate : public QObject
{
    Q_OBJECT

private slots:
    void datesShowInTheShortFormOfTheSystem_data();
    void datesShowInTheShortFormOfTheSystem();
    void theLanguageOfTheSessionDoesNotMatter();

private:
    static QString shown(const QString &text, const char *locale, const QStringList &session = {});
};

QString TestTestDate::shown(const QString &text, const char *locale, const QStringList &session)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", locale);
    environment.remove("LANGUAGE");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList{"--shown", text} + session);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        QTest::qFail("the program for one date failed", __FILE__, __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void TestTestDate::datesShowInTheShortFormOfTheSystem_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    QTest::newRow("ISO") << "2012-05-17T10:32:05"
                         << "17/05/2012 10:32:05"
                         << "17.05.12 10:32:05";
    QTest::newRow("ISO without a time") << "2012-05-17"
                                        << "17/05/2012 00:00:00"
                                        << "17.05.12 00:00:00";
    QTest::newRow("earlier files") << "17/05/2012 10:32:05"
                                   << "17/05/2012 10:32:05"
                                   << "17.05.12 10:32:05";
    QTest::newRow("short form of a German system") << "17.05.12 10:32:05"
                                                   << ""
                                                   << "17.05.12 10:32:05";
    QTest::newRow("text behind the seconds") << "17/05/2012 10:32:05Z"
                                             << "17/05/2012 10:32:05"
                                             << "17.05.12 10:32:05";
    QTest::newRow("seconds that are none") << "17/05/2012 10:32:xx"
                                           << "17/05/2012 10:32:00"
                                           << "17.05.12 10:32:00";
    QTest::newRow("two blanks") << "17/05/2012  10:32:05"
                                << ""
                                << "";
    QTest::newRow("no time") << "17/05/2012"
                             << ""
                             << "";
    QTest::newRow("hours and minutes") << "17/05/2012 10:32"
                                       << ""
                                       << "";
    QTest::newRow("no such time") << "17/05/2012 25:00:00"
                                  << ""
                                  << "";
    QTest::newRow("endless number") << "17/05/2012 4294967306:32:05"
                                    << ""
                                    << "";
    QTest::newRow("no such date") << "31/02/2012 10:32:05"
                                  << ""
                                  << "";
    QTest::newRow("time alone") << "T10:32:05"
                                << ""
                                << "";
    QTest::newRow("no date") << "yesterday"
                             << ""
                             << "";
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
}

void TestTestDate::datesShowInTheShortFormOfTheSystem()
{
    QFETCH(QString, stored);
    QTEST(shown(stored, "en_GB.UTF-8"), "english");
    QTEST(shown(stored, "de_DE.UTF-8"), "german");
}

void TestTestDate::theLanguageOfTheSessionDoesNotMatter()
{
    QCOMPARE(shown("2012-05-17T10:32:05", "en_GB.UTF-8", {"de"}), QString("17/05/2012 10:32:05"));
    QCOMPARE(shown("2012-05-17T10:32:05", "de_DE.UTF-8", {"en"}), QString("17.05.12 10:32:05"));
}

int main(int argc, char **argv)
{
    if (argc > 2 && QByteArray(argv[1]) == "--shown") {
        if (argc > 3)
            QLocale::setDefault(QLocale(argv[3]));
        std::fputs(IVCurve::formatTestDate(QString::fromLocal8Bit(argv[2])).toUtf8().constData(), stdout);
        return 0;
    }
    TestHome home;
    const QCoreApplication application(argc, argv);
    TestTestDate test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_testdate.moc"
