#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QtTest>

namespace {
TestHome *current = nullptr;
}

TestHome::TestHome() : m_places(m_folder.path())
{
    current = this;
    QDir().mkpath(dataFolder());
    qputenv("KELMAR_DATA_FOLDER", dataFolder().toLocal8Bit());
}

TestHome *TestHome::instance()
{
    return current;
}

void TestHome::reset(bool firstStart)
{
    QSettings settings;
    settings.clear();
    QDir(dataFolder()).removeRecursively();
    QDir(projectsRoot()).removeRecursively();
    QDir().mkpath(dataFolder());
    if (!firstStart) {
        QDir().mkpath(projectsRoot());
        settings.setValue(QStringLiteral("locale"), QStringLiteral("en"));
        settings.setValue(QStringLiteral("Directories/RootDir"), projectsRoot());
    }
    settings.sync();
    QLocale::setDefault(QLocale(QStringLiteral("en")));
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        QTest::qFail(qPrintable(QStringLiteral("cannot read ") + path), __FILE__, __LINE__);
        return QByteArray();
    }
    return file.readAll();
}
