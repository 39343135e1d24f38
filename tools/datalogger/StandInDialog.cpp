#include "tools/datalogger/StandInDialog.h"

#include "app/core/Identity.h"
#include "tools/testerfiles/SampleJob.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace {

constexpr int milliSecondsPerStep = 10;
constexpr int steps = 40;

QString targetPath(const QDateTime &now)
{
    const QString given = qEnvironmentVariable("KELMAR_STANDIN_FILE");
    if (!given.isEmpty())
        return given;
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    documents.mkpath(QStringLiteral("."));
    return documents.filePath(
        QStringLiteral("Tester %1.csv").arg(now.toString(QStringLiteral("yyyy-MM-dd HHmmss"))));
}

} // namespace

StandInDialog::StandInDialog(bool unattended, QWidget *parent) : QDialog(parent), m_unattended(unattended)
{
    buildUi();
    m_timer.setInterval(milliSecondsPerStep);
    connect(&m_timer, &QTimer::timeout, this, &StandInDialog::step);
    connect(m_button, &QPushButton::clicked, this, &StandInDialog::download);
    if (m_unattended)
        download();
}

void StandInDialog::download()
{
    m_button->setEnabled(false);
    m_label->setText(QStringLiteral("Reading the stored tests..."));
    m_timer.start();
}

void StandInDialog::buildUi()
{
    setWindowTitle(Identity::dataloggerApplicationName());
    m_label = new QLabel(QStringLiteral("Connect the tester and press Download."), this);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, steps);
    m_progress->setValue(0);
    m_button = new QPushButton(QStringLiteral("Download"), this);
    m_button->setObjectName(QStringLiteral("downloadButton"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_progress);
    layout->addWidget(m_button);
    resize(360, sizeHint().height());
}

void StandInDialog::step()
{
    m_progress->setValue(m_progress->value() + 1);
    if (m_progress->value() < steps)
        return;
    m_timer.stop();
    save();
}

void StandInDialog::save()
{
    const QDateTime now = QDateTime::currentDateTime();
    QFile file(targetPath(now));
    const QByteArray bytes = downloadedFile(static_cast<unsigned>(now.toSecsSinceEpoch()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        m_label->setText(file.fileName() + QLatin1String(": ") + file.errorString());
        m_button->setEnabled(true);
        m_progress->setValue(0);
        if (m_unattended)
            reject();
        return;
    }
    QSettings store(Identity::organisationName(), Identity::dataloggerApplicationName());
    store.setValue(QStringLiteral("Device/LastSavedFilePath"), file.fileName());
    store.sync();
    accept();
}
