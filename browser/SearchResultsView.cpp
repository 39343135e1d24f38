#include "browser/SearchResultsView.h"

#include <QHeaderView>

namespace {

constexpr int heightOfRows = 18;

} // namespace

SearchResultsView::SearchResultsView(QWidget *parent) : QTableView(parent)
{
    // The toolkit's own least height would be more.
    verticalHeader()->setMinimumSectionSize(heightOfRows);
    verticalHeader()->setDefaultSectionSize(heightOfRows);
    verticalHeader()->hide();
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // The Tab key is the way out of the table, the arrows lead around in it.
    setTabKeyNavigation(false);
    // Fitted to all rows, the columns would take the longer the more there are.
    horizontalHeader()->setResizeContentsPrecision(0);
}

void SearchResultsView::fitColumns()
{
    // Of a hidden view the toolkit looks at all rows.
    m_fitWhenShown = !isVisible();
    if (m_fitWhenShown)
        return;
    resizeColumnsToContents();
    m_lastFit = currentFit();
}

void SearchResultsView::fitColumnsToNewRows(int first)
{
    const Fit now = currentFit();
    const bool isAsLeft =
        now.offset == m_lastFit.offset && now.height == m_lastFit.height && now.widths == m_lastFit.widths;
    if (showsRow(first) || !isAsLeft)
        fitColumns();
}

void SearchResultsView::reset()
{
    m_needsPainting = true;
    m_lastFit = Fit();
    QTableView::reset();
}

void SearchResultsView::doItemsLayout()
{
    // The base paints all visible rows again after each insertion, wherever it was.
    if (m_needsPainting)
        QTableView::doItemsLayout();
    else
        updateGeometries();
    m_needsPainting = false;
}

void SearchResultsView::showEvent(QShowEvent *event)
{
    QTableView::showEvent(event);
    if (m_fitWhenShown)
        fitColumns();
}

void SearchResultsView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    if (showsRow(start))
        m_needsPainting = true;
    QTableView::rowsInserted(parent, start, end);
}

SearchResultsView::Fit SearchResultsView::currentFit() const
{
    Fit fit;
    fit.offset = verticalOffset();
    fit.height = viewport()->height();
    for (int column = 0; column < horizontalHeader()->count(); ++column)
        fit.widths.append(columnWidth(column));
    return fit;
}

bool SearchResultsView::showsRow(int row) const
{
    // By the height that all rows have: asking for a row's place would make the header count up all of
    // them after each insertion.
    const int top = row * verticalHeader()->defaultSectionSize() - verticalOffset();
    return top < viewport()->height();
}
