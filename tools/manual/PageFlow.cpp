#include "tools/manual/PageFlow.h"

#include <QSet>

namespace {

/// The share of a page that the end of a chapter takes up at least: less looks forgotten.
constexpr qreal leastEnd = 0.25;
/// The share of the page before that may be left when a section moves as a whole.
constexpr qreal enough = 0.4;

using Breaks = QSet<const PageBox *>;

class Flow
{
public:
    /// A page ends before each of the boxes in `breaks`, whatever room it has left.
    Flow(const PageBoxes &boxes, qreal height, const Breaks &breaks)
        : m_boxes(boxes), m_height(height), m_breaks(breaks)
    {
    }

    QVector<ManualPage> run()
    {
        size_t next = 0;
        while (next < m_boxes.size()) {
            const size_t end = groupEnd(next);
            const bool endsHere = m_boxes[next]->startsPage || m_breaks.contains(m_boxes[next].get());
            if (endsHere || m_pages.isEmpty())
                breakPage();
            // Pictures keep their order: one that would fit waits behind one that does not.
            const bool mayWait = m_boxes[next]->mayFloat && end == next + 1 && !atTop();
            const bool fitsHere = fits(next, end) && (m_waiting.empty() || !mayWait);
            if (!fitsHere && !mayWait && !atTop()) {
                breakPage();
                continue;
            }
            // What is taller than a page must stand somewhere, too.
            if (fitsHere || !mayWait)
                place(next, end);
            else
                m_waiting.push_back(m_boxes[next]);
            next = end;
            if (!m_waiting.empty() && (next == m_boxes.size() || m_boxes[next]->isHeading))
                breakPage();
        }
        return m_pages;
    }

private:
    /// Behind the last of the boxes from `first` that stay together.
    size_t groupEnd(size_t first) const
    {
        size_t last = first;
        while (m_boxes[last]->keepWithNext && last + 1 < m_boxes.size())
            ++last;
        return last + 1;
    }

    bool atTop() const { return m_y == 0; }

    qreal heightOf(const PageBox &box, qreal at) const
    {
        qreal height = box.height;
        if (at > 0)
            height += box.before;
        else if (box.repeated)
            height += box.repeated->height;
        return height;
    }

    bool fits(size_t first, size_t end) const
    {
        qreal y = m_y;
        for (size_t i = first; i < end; ++i)
            y += heightOf(*m_boxes[i], y);
        return y <= m_height;
    }

    void placeOne(const std::shared_ptr<const PageBox> &box)
    {
        if (atTop() && box->repeated)
            placeOne(box->repeated);
        else if (!atTop())
            m_y += box->before;
        if (!box->chapter.isEmpty())
            m_chapter = box->chapter;
        if (m_pages.last().boxes.isEmpty())
            m_pages.last().chapter = m_chapter;
        m_pages.last().boxes.append({box, m_y});
        m_y += box->height;
    }

    void place(size_t first, size_t end)
    {
        for (size_t i = first; i < end; ++i)
            placeOne(m_boxes[i]);
    }

    void breakPage()
    {
        m_pages.append(ManualPage());
        m_y = 0;
        PageBoxes waiting;
        waiting.swap(m_waiting);
        for (const std::shared_ptr<PageBox> &box : waiting)
            placeOne(box);
    }

    const PageBoxes &m_boxes;
    qreal m_height;
    Breaks m_breaks;
    QVector<ManualPage> m_pages;
    PageBoxes m_waiting;
    qreal m_y = 0;
    QString m_chapter;
};

/// True if page `number` is the last of a chapter that has begun on an earlier page.
bool endsLongChapter(const QVector<ManualPage> &pages, int number)
{
    const bool isLast = number + 1 == pages.size() || pages.at(number + 1).boxes.first().box->startsPage;
    return isLast && number > 0 && !pages.at(number).boxes.first().box->startsPage;
}

/// The box of `page` from which on everything is to go to the page behind it, so that this one comes to hold
/// `missing` more and neither of the two too little. It is a heading where a good part of the page stays
/// filled. Null if there is none.
const PageBox *whereToEnd(const ManualPage &page, qreal missing, qreal height)
{
    const PageBox *found = nullptr;
    for (int i = page.boxes.size() - 1; i > 0; --i) {
        const PageBox &box = *page.boxes.at(i).box;
        const PlacedBox &above = page.boxes.at(i - 1);
        const qreal stays = above.y + above.box->height;
        // A picture may belong to a place further up, from where it has come to this page.
        if (above.box->keepWithNext || box.mayFloat || page.filled() - page.boxes.at(i).y < missing)
            continue;
        if (box.isHeading && stays >= enough * height)
            return &box;
        if (!found && stays >= leastEnd * height)
            found = &box;
    }
    return found;
}

} // namespace

QVector<ManualPage> flowIntoPages(const PageBoxes &boxes, qreal height)
{
    const qreal least = leastEnd * height;
    Breaks breaks;
    QVector<ManualPage> pages = Flow(boxes, height, breaks).run();
    for (int number = 0; number < pages.size(); ++number) {
        const qreal missing = least - pages.at(number).filled();
        if (missing <= 0 || !endsLongChapter(pages, number))
            continue;
        if (const PageBox *first = whereToEnd(pages.at(number - 1), missing, height)) {
            breaks.insert(first);
            pages = Flow(boxes, height, breaks).run();
        }
    }
    return pages;
}
