#include "tools/manual/PageFlow.h"

namespace {

class Flow
{
public:
    Flow(const PageBoxes &boxes, qreal height) : m_boxes(boxes), m_height(height) {}

    QVector<ManualPage> run()
    {
        size_t next = 0;
        while (next < m_boxes.size()) {
            const size_t end = groupEnd(next);
            if (m_boxes[next]->startsPage || m_pages.isEmpty())
                breakPage();
            // Pictures keep their order: one that would fit waits behind one that does not.
            const bool mayWait = m_boxes[next]->mayFloat && end == next + 1 && !atTop();
            if (fits(next, end) && (m_waiting.empty() || !mayWait)) {
                place(next, end);
            } else if (mayWait) {
                m_waiting.push_back(m_boxes[next]);
            } else if (!atTop()) {
                breakPage();
                continue;
            } else {
                // Taller than a page: it must stand somewhere.
                place(next, end);
            }
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
    QVector<ManualPage> m_pages;
    PageBoxes m_waiting;
    qreal m_y = 0;
    QString m_chapter;
};

} // namespace

QVector<ManualPage> flowIntoPages(const PageBoxes &boxes, qreal height)
{
    return Flow(boxes, height).run();
}
