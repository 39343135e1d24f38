#include "report/ReportScene.h"

#include "app/core/Language.h"
#include "app/core/Messages.h"
#include "app/core/PdfTarget.h"
#include "app/core/PrintedSheet.h"
#include "app/core/Shell.h"
#include "report/ReportWriter.h"
#include "report/file/ReportXml.h"
#include "report/items/AbstractReportItem.h"
#include "report/items/ReportPage.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QUndoStack>

#include <algorithm>

namespace {

/// Distance that is kept around the place that Tab leads to.
constexpr int visibleMargin = 50;

/// The suffix that decides what a report is. As everywhere, its case does not matter.
QString suffixOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

bool hasTemplate(const QString &path)
{
    return suffixOf(path) != QLatin1String("kelreport");
}

/// The template of reports that name none: the first revision of their kind.
QString firstTemplate(const QString &path)
{
    return reportsResource(suffixOf(path) + QStringLiteral(".pak"));
}

/// Always false, for the caller to return.
bool warn(const QString &text, const QString &informativeText = QString())
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Warning;
    message.text = text;
    message.informativeText = informativeText;
    showMessage(message);
    return false;
}

/// As warn(), while a file is being opened: the user shall not face a box with the hourglass.
bool warnWhileOpening(const QString &text, const QString &informativeText = QString())
{
    if (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    return warn(text, informativeText);
}

bool isTab(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
}

/// The report item that an item belongs to: a text editor is a helper of its field.
AbstractReportItem *reportItemOf(QGraphicsItem *item)
{
    while (item && !isReportItem(item))
        item = item->parentItem();
    return static_cast<AbstractReportItem *>(item);
}

} // namespace

ReportScene::ReportScene(QUndoStack *undoStack, QObject *parent)
    : QGraphicsScene(parent), m_undoStack(undoStack)
{
    setBackgroundBrush(Qt::gray);
}

ReportScene::~ReportScene()
{
    // While the scene is still whole: items look for it when they go.
    clear();
    for (const QPointer<AbstractReportItem> &item : qAsConst(m_discarded))
        delete item.data();
}

bool ReportScene::load(const QString &path)
{
    ReportFileEntries entries;
    if (!readReportFileEntries(path, entries))
        return warnWhileOpening(tr("Error opening %1 for reading").arg(path));
    QDomDocument document;
    ReportXml::Error error;
    if (!ReportXml::parse(entries.first().data, document, &error)) {
        // All at once: the path itself may contain what looks like the next place to fill.
        const QString text = tr("XML validation error in %1 on line %2, column %3")
                                 .arg(path, QString::number(error.line), QString::number(error.column));
        return warnWhileOpening(text, error.message);
    }
    const QDomElement root = document.documentElement();
    ReportReader reader(*this, *this, m_index);
    if (hasTemplate(path)) {
        m_resPak = root.attribute(QLatin1String(ReportXml::Attribute::resPak), firstTemplate(path));
        if (!buildTemplate(reader))
            return warnWhileOpening(tr("Error opening %1 for reading").arg(path));
    }
    collectPages();
    reader.merge(root, entries);
    setFocus(Qt::OtherFocusReason);
    return true;
}

bool ReportScene::buildTemplate(ReportReader &reader)
{
    // Templates come from the program alone, never from the disk.
    if (!m_resPak.startsWith(QLatin1String(":res/")))
        return false;
    ReportFileEntries entries;
    if (!readReportFileEntries(m_resPak, entries))
        return false;
    // A template that cannot be understood leaves the scene empty, without a word.
    QDomDocument document;
    if (ReportXml::parse(entries.first().data, document))
        reader.build(document.documentElement(), entries);
    return true;
}

void ReportScene::collectPages()
{
    m_pages.clear();
    const QList<QGraphicsItem *> all = items(Qt::AscendingOrder);
    for (QGraphicsItem *item : all) {
        if (item->type() == ReportPageType && !item->parentItem())
            m_pages.append(static_cast<ReportPage *>(item));
    }
    const auto comesBefore = [](const ReportPage *a, const ReportPage *b) {
        return a->pageNumber() < b->pageNumber();
    };
    std::stable_sort(m_pages.begin(), m_pages.end(), comesBefore);
}

bool ReportScene::save(const QString &path)
{
    clearFocusItem();
    if (hasTemplate(path) && m_resPak.isEmpty())
        m_resPak = firstTemplate(path);
    if (writeReportFileEntries(writeReport(*this, m_resPak), path))
        return true;
    return warn(tr("Error opening %1 for writing").arg(path),
                tr("Is the file read-only or has it been deleted?"));
}

QUndoStack *ReportScene::undoStack() const
{
    return m_undoStack;
}

void ReportScene::adopt(AbstractReportItem *item)
{
    connect(item, &AbstractReportItem::modified, this, &ReportScene::modified, Qt::UniqueConnection);
    connect(item, &AbstractReportItem::newCommand, this, &ReportScene::newCommand, Qt::UniqueConnection);
}

void ReportScene::discard(AbstractReportItem *item)
{
    if (item->scene() != this)
        return;
    removeItem(item);
    m_discarded.append(item);
}

AbstractReportItem *ReportScene::itemById(const QString &id) const
{
    return m_index.itemsById.value(id);
}

void ReportScene::newCommand(QUndoCommand *command)
{
    if (m_undoStack)
        m_undoStack->push(command);
    else
        delete command;
}

void ReportScene::clearFocusItem()
{
    setFocusItem(nullptr, Qt::OtherFocusReason);
}

void ReportScene::print()
{
    clearFocusItem();
    QPrinter printer(QPrinter::HighResolution);
    PrintedSheet::setUpA4(printer);
    QPrintDialog dialog(&printer, Shell::parentWindow());
    if (dialog.exec() == QDialog::Accepted)
        paint(&printer);
}

void ReportScene::exportToPdf()
{
    clearFocusItem();
    const QString path = askPdfTarget(Shell::parentWindow());
    if (!path.isEmpty())
        writePdf(path);
}

bool ReportScene::writePdf(const QString &path)
{
    clearFocusItem();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    PrintedSheet::setUpA4(printer);
    printer.setOutputFileName(path);
    if (paint(&printer))
        return true;
    return warn(tr("Error opening %1 for writing").arg(path));
}

bool ReportScene::paint(QPrinter *printer)
{
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    for (const ReportPage *page : qAsConst(m_pages)) {
        if (page != m_pages.first())
            printer->newPage();
        render(&painter, QRectF(), page->sceneBoundingRect(), Qt::KeepAspectRatio);
        PrintedSheet::drawMark(painter, *printer);
    }
    return painter.end();
}

bool ReportScene::event(QEvent *event)
{
    // Without a focus item the base class keeps Tab to itself and looks for widgets, which it never finds.
    if (event->type() == QEvent::KeyPress && !focusItem()) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (isTab(keyEvent)) {
            keyPressEvent(keyEvent);
            return true;
        }
    }
    return QGraphicsScene::event(event);
}

void ReportScene::keyPressEvent(QKeyEvent *event)
{
    if (isTab(event))
        moveFocus(event->key() == Qt::Key_Tab);
    else
        QGraphicsScene::keyPressEvent(event);
}

void ReportScene::moveFocus(bool forward)
{
    const AbstractReportItem *from = reportItemOf(focusItem());
    AbstractReportItem *link = nullptr;
    if (from)
        link = forward ? from->nextTabStop() : from->previousTabStop();
    AbstractReportItem *end = forward ? m_index.firstTabStop : m_index.lastTabStop;
    setFocusItem(link ? link : end, Qt::OtherFocusReason);
    if (!link)
        return;
    QRectF place = link->boundingRect();
    place.setWidth(1);
    link->ensureVisible(place, visibleMargin, visibleMargin);
}
