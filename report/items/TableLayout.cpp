#include "report/items/TableLayout.h"

#include <algorithm>

namespace {

constexpr int maxTracks = 0xFFFF;
constexpr qint64 maxPositions = 16384;

} // namespace

QVector<TableLayout::Track> TableLayout::tracks(const QVector<std::optional<double>> &described,
                                                double extent)
{
    QVector<Track> result(described.size());
    double total = 0.0;
    int count = 0;
    for (int i = 0; i < described.size(); ++i) {
        result[i].size = described[i].value_or(0.0);
        total += result[i].size;
        count += described[i].has_value() ? 1 : 0;
    }
    // With every column described nothing is shared out, and none is given a place either.
    if (count == described.size())
        return result;

    const double share = (extent - total) / (described.size() - count);
    double position = 0.0;
    for (Track &track : result) {
        if (track.size == 0.0)
            track.size = share;
        track.position = position;
        position += track.size;
    }
    return result;
}

int TableLayout::firstEmptyColumn(const QVector<Entry> &entries, const QVector<int> &rows, int columnCount)
{
    int column = 0;
    for (const Entry &entry : entries) {
        if (!entry.isEmpty && rows.contains(entry.row))
            column = std::max(column, entry.col + 1);
    }
    return column < columnCount ? column : -1;
}

bool TableLayout::isAcceptableGrid(int columnCount, int rowCount)
{
    return columnCount >= 0 && rowCount >= 0 && columnCount <= maxTracks && rowCount <= maxTracks &&
           qint64(columnCount) * rowCount <= maxPositions && qint64(columnCount) + rowCount <= maxPositions;
}
