#pragma once

#include <QTableView>

/// A table of rows of one height that comes to thousands of them one by one: what happens below the visible
/// part costs neither a repaint nor a fit of the columns.
class SearchResultsView : public QTableView
{
    Q_OBJECT

public:
    explicit SearchResultsView(QWidget *parent = nullptr);

    /// Fits the columns to the visible rows; while the view is hidden, as soon as it is shown.
    void fitColumns();
    /// Fits the columns after rows were appended from `first` on. That changes nothing, and is left out,
    /// when none of them is visible and the view is as the last fit left it.
    void fitColumnsToNewRows(int first);

    void reset() override;
    void doItemsLayout() override;

protected:
    void showEvent(QShowEvent *event) override;

protected slots:
    void rowsInserted(const QModelIndex &parent, int start, int end) override;

private:
    /// What a fit of the columns depends on and leads to, but for the rows themselves.
    struct Fit
    {
        int offset = -1;
        int height = -1;
        QVector<int> widths;
    };
    Fit currentFit() const;
    bool showsRow(int row) const;

    Fit m_lastFit;
    bool m_fitWhenShown = false;
    bool m_needsPainting = true;
};
