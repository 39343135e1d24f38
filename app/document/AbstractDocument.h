#pragma once

#include <QString>
#include <QWidget>

/// Base of all documents: one file of the project tree, shown as one widget in the workspace.
class AbstractDocument : public QWidget
{
    Q_OBJECT

public:
    explicit AbstractDocument(const QString &path, QWidget *parent = nullptr);

    /// The path as it was given; stays the same when the file is renamed elsewhere.
    QString filePath() const { return m_filePath; }
    QString fileName() const { return m_fileName; }
    /// True once the document's file has been loaded.
    bool isValid() const { return m_valid; }
    bool isModified() const { return m_modified; }

    /// May the document close now? Asks the user where changes would be lost.
    virtual bool queryClose();
    /// Writes the document to its file.
    virtual void save();

signals:
    void titleChanged(AbstractDocument *doc);

public slots:
    void setModified(bool modified);
    void setValid(bool valid);
    /// Tells the document whether it has the user's attention.
    virtual void setCurrent(bool yesNo);

protected:
    /// The question before closing, in the words of the concrete document: without changes nothing is
    /// asked; Yes saves. Returns false when the user wants the document to stay open.
    bool askToSave(const QString &question);

private:
    void updateTitle();

    QString m_filePath;
    QString m_fileName;
    bool m_valid = false;
    bool m_modified = false;
};
