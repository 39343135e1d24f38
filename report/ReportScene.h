#pragma once

#include "report/ReportReader.h"
#include "report/items/ReportItemHost.h"

#include <QGraphicsScene>
#include <QList>
#include <QPointer>
#include <QString>

class QPrinter;
class QUndoCommand;
class QUndoStack;
class ReportPage;

/// The pages of one report with all that stands on them. It loads, saves and prints them, moves the focus
/// along the tab chain, and hands every step of the user's work to the undo stack of its document.
class ReportScene : public QGraphicsScene, public ReportItemHost
{
    Q_OBJECT

public:
    explicit ReportScene(QUndoStack *undoStack, QObject *parent = nullptr);
    ~ReportScene() override;

    /// Builds the report of a file. Tells the user what is wrong and returns false when it cannot be read.
    bool load(const QString &path);
    /// Writes the report to a file. Tells the user and returns false when it cannot be opened.
    bool save(const QString &path);
    /// Prints to a PDF file, without a question. Tells the user and returns false when it cannot be written.
    bool writePdf(const QString &path);

    QUndoStack *undoStack() const override;
    void adopt(AbstractReportItem *item) override;
    /// Takes an item that the user deleted off its page for good. Undo steps may still refer to it, so it
    /// lives on until the scene goes.
    void discard(AbstractReportItem *item);

    /// The item with an id, or null.
    AbstractReportItem *itemById(const QString &id) const;
    /// The pages in the order of their numbers.
    const QList<ReportPage *> &pages() const { return m_pages; }
    /// Path of the template in the resources; empty for a report without one.
    QString resPak() const { return m_resPak; }

signals:
    void modified(bool changed);

public slots:
    /// Prints to a printer that the user chooses.
    void print();
    /// Prints to a PDF file that the user chooses.
    void exportToPdf();
    /// Draws each page on a sheet of its own. False when the printer cannot begin.
    bool paint(QPrinter *printer);
    /// Pushes a step of the user's work on the undo stack.
    void newCommand(QUndoCommand *command);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool buildTemplate(ReportReader &reader);
    void collectPages();
    void moveFocus(bool forward);
    void clearFocusItem();

    QList<ReportPage *> m_pages;
    QString m_resPak;
    ReportIndex m_index;
    QPointer<QUndoStack> m_undoStack;
    QList<QPointer<AbstractReportItem>> m_discarded;
};
