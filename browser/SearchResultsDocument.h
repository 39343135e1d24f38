#pragma once

#include "app/document/AbstractDocument.h"

class QAbstractItemModel;
class QModelIndex;
class SearchResultsView;

/// The tab with the rows of a search. It has no file: nothing is saved and nothing can change.
class SearchResultsDocument : public AbstractDocument
{
    Q_OBJECT

public:
    /// The last component of the paths that lead to this document, whatever is on the disk.
    static QString pathName() { return QStringLiteral("Search Results"); }

    explicit SearchResultsDocument(const QString &path, QWidget *parent = nullptr);

    /// Shows the rows of a model that outlives the document. Can be called again for each search.
    void setResultsModel(QAbstractItemModel *model);

signals:
    void openDocument(const QString &filePath);

public slots:
    void resizeColumns();

protected slots:
    void rowsInserted(const QModelIndex &parent, int start, int end);
    void activated(const QModelIndex &index);

private:
    SearchResultsView *m_tableView;
};
