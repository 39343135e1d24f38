#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>

class AbstractDocument;
class MdiWindow;

/// Closes documents whose files have gone. It waits until no dialog, menu or drag is under way: it may be one
/// of the document's, which would go while its answer is still waited for.
class GoneFiles : public QObject
{
    Q_OBJECT

public:
    explicit GoneFiles(MdiWindow *window);

    /// The file of an open document has gone.
    void add(AbstractDocument *document);
    /// Closes what was added, now or when nothing is under way any more. Each document is closed, and so may
    /// ask its question, once.
    void close();

private:
    MdiWindow *m_window;
    QVector<QPointer<AbstractDocument>> m_documents;
    QTimer m_nextLook;
};
