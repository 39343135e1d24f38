#pragma once

#include <QFrame>

#include <memory>

namespace Ui {
class FindInFiles;
}
class FoundFilesModel;
class QDir;
class QFileInfo;

/// The panel that searches the documents under the projects root by name, phrase, date and size. The walk
/// runs in the user interface's own thread and lets it live after each entry.
class FindInFiles : public QFrame
{
    Q_OBJECT

public:
    explicit FindInFiles(QWidget *parent = nullptr);
    ~FindInFiles() override;

    /// The rows of the last search, or of the running one.
    FoundFilesModel *model() const { return m_model; }

signals:
    void searchStarted();
    void searchFinished();

protected:
    void keyPressEvent(QKeyEvent *event) override;

protected slots:
    void search();
    void stop();

private:
    void showSearching(bool searching);
    QRegExp nameExpression() const;
    void searchDirectory(const QRegExp &regExp, const QDir &dir);
    void testEntry(const QRegExp &regExp, const QFileInfo &info);
    bool hasDate(const QFileInfo &info) const;
    bool hasSize(const QFileInfo &info) const;
    bool hasPhrase(const QFileInfo &info) const;

    std::unique_ptr<Ui::FindInFiles> m_ui;
    FoundFilesModel *m_model = nullptr;
    bool m_searching = false;
    bool m_stopRequested = false;
};
