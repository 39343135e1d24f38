#include "browser/SearchResultsDocument.h"

#include "browser/FoundFilesModel.h"
#include "browser/RightAlignedDelegate.h"
#include "browser/SearchResultsView.h"

#include <QVBoxLayout>

SearchResultsDocument::SearchResultsDocument(const QString &path, QWidget *parent)
    : AbstractDocument(path, parent), m_tableView(new SearchResultsView(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_tableView->setAccessibleName(fileName());
    m_tableView->setGridStyle(Qt::NoPen);
    m_tableView->setItemDelegateForColumn(FoundFilesModel::SizeColumn, new RightAlignedDelegate(this));
    connect(m_tableView, &QAbstractItemView::activated, this, &SearchResultsDocument::activated);
    layout->addWidget(m_tableView);
}

void SearchResultsDocument::setResultsModel(QAbstractItemModel *model)
{
    m_tableView->setModel(model);
    connect(model, &QAbstractItemModel::rowsInserted, this, &SearchResultsDocument::rowsInserted,
            Qt::UniqueConnection);
}

void SearchResultsDocument::resizeColumns()
{
    m_tableView->fitColumns();
}

void SearchResultsDocument::rowsInserted(const QModelIndex &, int start, int)
{
    m_tableView->fitColumnsToNewRows(start);
}

void SearchResultsDocument::activated(const QModelIndex &index)
{
    emit openDocument(index.data(FoundFilesModel::filePathRole).toString());
}
