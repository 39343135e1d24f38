#include "app/document/AbstractDocument.h"

#include "app/core/DocumentType.h"
#include "app/core/Messages.h"
#include "app/core/Shell.h"

#include <QFileInfo>

AbstractDocument::AbstractDocument(const QString &path, QWidget *parent)
    : QWidget(parent), m_filePath(path), m_fileName(QFileInfo(path).fileName())
{
    updateTitle();
    setWindowIcon(documentIcon(path));
}

bool AbstractDocument::queryClose()
{
    return true;
}

void AbstractDocument::save() {}

void AbstractDocument::setModified(bool modified)
{
    if (m_modified == modified)
        return;
    m_modified = modified;
    updateTitle();
    emit titleChanged(this);
}

void AbstractDocument::setValid(bool valid)
{
    m_valid = valid;
}

void AbstractDocument::setCurrent(bool) {}

bool AbstractDocument::askToSave(const QString &question)
{
    if (!isModified())
        return true;
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Information;
    message.text = question;
    message.buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    switch (showMessage(message).button) {
    case QMessageBox::Yes:
        save();
        return true;
    case QMessageBox::No:
        return true;
    default:
        return false;
    }
}

void AbstractDocument::updateTitle()
{
    setWindowTitle(m_modified ? QStringLiteral("%1 *").arg(m_fileName) : m_fileName);
}
