#include "tests/manual/ManualJob.h"

#include "app/core/Identity.h"
#include "tests/support/TestHome.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSettings>
#include <QtTest>

namespace {

/// A roof with modules under a blue sky, in the place of a photograph.
void paintRoof(const QString &path)
{
    QImage image(330, 220, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 220);
    sky.setColorAt(0, QColor(0x6f, 0xb1, 0xe8));
    sky.setColorAt(1, QColor(0xdc, 0xec, 0xf8));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xa3, 0x4a, 0x33));
    painter.drawPolygon(QPolygonF({{10, 190}, {70, 50}, {260, 50}, {320, 190}}));
    painter.setBrush(QColor(0xe8, 0xdf, 0xd0));
    painter.drawRect(QRectF(26, 190, 278, 30));
    painter.setPen(QPen(QColor(0xd5, 0xda, 0xe0), 1.5));
    painter.setBrush(QColor(0x1b, 0x35, 0x55));
    for (int row = 0; row < 3; ++row) {
        const qreal top = 62 + 40 * row;
        const qreal bottom = top + 36;
        // Each row is as wide as the roof is there.
        const auto x = [](qreal column, qreal y) {
            const qreal half = 70 + (y - 50) * 0.36;
            return 165 - half + column * half / 3;
        };
        for (int column = 0; column < 6; ++column)
            painter.drawPolygon(QPolygonF({{x(column, top), top},
                                           {x(column + 0.94, top), top},
                                           {x(column + 0.94, bottom), bottom},
                                           {x(column, bottom), bottom}}));
    }
    painter.end();
    QVERIFY(image.scaledToWidth(165, Qt::SmoothTransformation).save(path));
}

} // namespace

ManualJob::ManualJob()
    : m_german(qEnvironmentVariable("KELMAR_MANUAL_LANGUAGE") == QLatin1String("de"))
    , m_root(qEnvironmentVariable("KELMAR_MANUAL_ROOT", TestHome::instance()->projectsRoot()))
{
}

QString ManualJob::word(const char *english, const char *german) const
{
    return QString::fromUtf8(m_german ? german : english);
}

QString ManualJob::folder() const
{
    return m_root + QLatin1Char('/') + word("Sunny Lane 12", "Sonnenweg 12");
}

void ManualJob::prepare() const
{
    QDir(m_root).removeRecursively();
    QDir(TestHome::instance()->dataFolder()).removeRecursively();
    for (const QString &name : {word("Harbour Street 4", "Hafenstraße 4"), word("Old Mill", "Alte Mühle")})
        QVERIFY(QDir().mkpath(m_root + QLatin1Char('/') + name));
    copySample();
    writeFile(TestHome::instance()->dataFolder() + QStringLiteral("/modules.db"),
              readFile(QStringLiteral(KELMAR_MODULES)));
    paintRoof(photo());

    QSettings settings(Identity::organisationName(), Identity::applicationName());
    settings.clear();
    settings.setValue(QStringLiteral("locale"), m_german ? QStringLiteral("de_DE") : QStringLiteral("en_GB"));
    settings.setValue(QStringLiteral("Directories/RootDir"), m_root);
    settings.setValue(QStringLiteral("Welcome/show"), false);
}

QString ManualJob::photo() const
{
    return TestHome::instance()->path(QStringLiteral("roof.png"));
}

QStringList ManualJob::forms() const
{
    return {inspection(), report(), path(word("Verification Certificate.kelvc", "Prüfbescheinigung.kelvc")),
            path(word("Handover Pack/Checklist.kelchk", "Übergabeunterlagen/Übergabe-Checkliste.kelchk"))};
}

void ManualJob::copySample() const
{
    const QString sample = QStringLiteral(KELMAR_SAMPLES "/") + word("Sunny Lane 12", "Sonnenweg 12");
    // Both languages show the same files.
    const QStringList others{QStringLiteral("Roof south (German).csv"), QStringLiteral("Earthing.csv"),
                             QStringLiteral("Passing clouds.csv")};
    QDirIterator files(sample, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        if (!others.contains(files.fileName()))
            writeFile(path(file.mid(sample.size() + 1)), readFile(file));
    }
}

void ManualJob::empty(const QString &form) const
{
    const QString language = m_german ? QStringLiteral("de") : QStringLiteral("en");
    writeFile(
        form,
        readFile(QStringLiteral(":/res/reports_%1/default.%2").arg(language, QFileInfo(form).suffix())));
}

void ManualJob::setDate(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime(day(), QTime(16, 20)), QFileDevice::FileModificationTime));
}

void ManualJob::forgetSettings() const
{
    QSettings(Identity::organisationName(), Identity::applicationName()).clear();
}
