#include "app/shell/GoneFiles.h"

#include "app/document/AbstractDocument.h"
#include "app/shell/MdiWindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QThread>

namespace {

constexpr int millisecondsToNextLook = 100;

bool isSomethingUnderWay()
{
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QApplication::mouseButtons() != Qt::NoButton || QThread::currentThread()->loopLevel() > 1;
}

} // namespace

GoneFiles::GoneFiles(MdiWindow *window) : QObject(window), m_window(window)
{
    m_nextLook.setSingleShot(true);
    m_nextLook.setInterval(millisecondsToNextLook);
    connect(&m_nextLook, &QTimer::timeout, this, &GoneFiles::close);
}

void GoneFiles::add(AbstractDocument *document)
{
    if (!m_documents.contains(document))
        m_documents.append(document);
}

void GoneFiles::close()
{
    while (!m_documents.isEmpty()) {
        if (isSomethingUnderWay()) {
            m_nextLook.start();
            return;
        }
        // It stays in the list while it asks whether to save, so that it is not added anew meanwhile.
        const QPointer<AbstractDocument> document(m_documents.first());
        if (document && !QFileInfo::exists(document->filePath()))
            m_window->closeDocument(document);
        m_documents.removeOne(document);
    }
}
