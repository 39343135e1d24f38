#include "browser/FindInFiles.h"

#include "app/core/Folders.h"
#include "browser/FoundFilesModel.h"
#include "browser/PhraseSearch.h"
#include "ui_FindInFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRegExp>

namespace {

/// What the entries of the date box stand for.
enum DateKind
{
    CreatedDate,
    ModifiedDate,
    AccessedDate
};

/// What the entries of the size box stand for.
enum SizeKind
{
    GreaterThan,
    LessThan
};

const QChar wildcard = QLatin1Char('*');

QDate dateOf(const QFileInfo &info, int kind)
{
    switch (kind) {
    case CreatedDate:
        return info.created().date();
    case AccessedDate:
        return info.lastRead().date();
    default:
        return info.lastModified().date();
    }
}

/// The bytes of a number of kilobytes. It is computed in 32 bits, so that it is negative from 2 GB upward.
qint64 sizeLimit(int kilobytes)
{
    return static_cast<qint32>(static_cast<quint32>(kilobytes) << 10);
}

QFileInfoList entries(const QDir &dir, QDir::Filter kind)
{
    return dir.entryInfoList(kind | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::NoSort);
}

} // namespace

FindInFiles::FindInFiles(QWidget *parent)
    : QFrame(parent), m_ui(new Ui::FindInFiles), m_model(new FoundFilesModel(this))
{
    m_ui->setupUi(this);
    m_ui->dateKind->addItem(tr("Created Date"), CreatedDate);
    m_ui->dateKind->addItem(tr("Modified Date"), ModifiedDate);
    m_ui->dateKind->addItem(tr("Accessed Date"), AccessedDate);
    m_ui->dateKind->setCurrentIndex(ModifiedDate);
    m_ui->sizeKind->addItem(tr("greater than"), GreaterThan);
    m_ui->sizeKind->addItem(tr("less than"), LessThan);
    m_ui->dateFrom->setDate(QDate::currentDate());
    m_ui->dateTo->setDate(QDate::currentDate());
    m_ui->stop->hide();
    connect(m_ui->search, &QAbstractButton::pressed, this, &FindInFiles::search);
    connect(m_ui->stop, &QAbstractButton::pressed, this, &FindInFiles::stop);
    // A walk that nobody sees any more must not keep the program from ending.
    connect(qGuiApp, &QGuiApplication::lastWindowClosed, this, &FindInFiles::stop);
}

FindInFiles::~FindInFiles() = default;

void FindInFiles::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        search();
}

void FindInFiles::search()
{
    // The button is away during a search, the key is not.
    if (m_searching)
        return;
    m_searching = true;
    m_stopRequested = false;
    emit searchStarted();
    showSearching(true);
    m_model->clearResults();
    QCoreApplication::processEvents();
    searchDirectory(nameExpression(), QDir(Folders::instance()->projectsRoot()));
    showSearching(false);
    m_stopRequested = false;
    m_searching = false;
    m_model->searchDone();
    emit searchFinished();
}

void FindInFiles::stop()
{
    m_stopRequested = true;
}

void FindInFiles::showSearching(bool searching)
{
    const QPushButton *leaves = searching ? m_ui->search : m_ui->stop;
    QPushButton *comes = searching ? m_ui->stop : m_ui->search;
    // Whoever works by keys stays in the panel.
    const bool keepFocus = leaves->hasFocus();
    m_ui->search->setVisible(!searching);
    m_ui->stop->setVisible(searching);
    if (keepFocus)
        comes->setFocus();
}

QRegExp FindInFiles::nameExpression() const
{
    QString pattern;
    if (m_ui->fileGroup->isChecked()) {
        pattern = m_ui->nameEdit->text();
        if (!pattern.isEmpty() && !pattern.endsWith(wildcard))
            pattern.append(wildcard);
    }
    if (!pattern.startsWith(wildcard))
        pattern.prepend(wildcard);
    return QRegExp(pattern, m_ui->nameCaseSensitive->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive,
                   QRegExp::Wildcard);
}

void FindInFiles::searchDirectory(const QRegExp &regExp, const QDir &dir)
{
    const QFileInfoList files = entries(dir, QDir::Files);
    for (const QFileInfo &info : files) {
        testEntry(regExp, info);
        QCoreApplication::processEvents();
        if (m_stopRequested)
            return;
    }
    const QFileInfoList folders = entries(dir, QDir::Dirs);
    for (const QFileInfo &info : folders) {
        testEntry(regExp, info);
        QCoreApplication::processEvents();
        if (m_stopRequested)
            return;
        searchDirectory(regExp, QDir(info.filePath()));
    }
}

void FindInFiles::testEntry(const QRegExp &regExp, const QFileInfo &info)
{
    // The cheap tests come first: the last one reads the file.
    if (regExp.exactMatch(info.fileName()) && hasDate(info) && hasSize(info) && hasPhrase(info))
        m_model->addFile(info);
}

bool FindInFiles::hasDate(const QFileInfo &info) const
{
    if (!m_ui->dateGroup->isChecked())
        return true;
    const QDate date = dateOf(info, m_ui->dateKind->currentData().toInt());
    return date >= m_ui->dateFrom->date() && date <= m_ui->dateTo->date();
}

bool FindInFiles::hasSize(const QFileInfo &info) const
{
    if (!m_ui->sizeGroup->isChecked())
        return true;
    const qint64 limit = sizeLimit(m_ui->sizeLimit->value());
    return m_ui->sizeKind->currentData().toInt() == GreaterThan ? info.size() >= limit : info.size() <= limit;
}

bool FindInFiles::hasPhrase(const QFileInfo &info) const
{
    QString phrase = m_ui->phraseEdit->text();
    if (!m_ui->phraseGroup->isChecked() || phrase.isEmpty())
        return true;
    if (!phrase.startsWith(wildcard))
        phrase.prepend(wildcard);
    if (!phrase.endsWith(wildcard))
        phrase.append(wildcard);
    return fileContainsPhrase(
        phrase, m_ui->phraseCaseSensitive->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive,
        info.absoluteFilePath());
}
