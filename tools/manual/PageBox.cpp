#include "tools/manual/PageBox.h"

#include <QPainter>
#include <QtMath>

void TextBox::setMarker(const StyledText &marker, qreal distance)
{
    m_marker = marker;
    m_markerDistance = distance;
}

void TextBox::setShade(const PageStyle &style, bool withBar)
{
    m_padding = style.mm(2.4);
    m_width = style.textArea().width();
    m_bar = withBar ? style.mm(1) : 0;
    height = m_text.height() + 2 * m_padding;
}

void TextBox::setUnderline(const PageStyle &style)
{
    m_underline = style.mm(0.35);
    m_width = style.textArea().width();
    height = m_text.height() + style.mm(1.6);
}

void TextBox::paint(QPainter &painter, const QPointF &topLeft) const
{
    if (m_padding > 0)
        painter.fillRect(QRectF(topLeft, QSizeF(m_width, height)), PageStyle::shade());
    if (m_bar > 0)
        painter.fillRect(QRectF(topLeft, QSizeF(m_bar, height)), PageStyle::accent());
    if (m_underline > 0)
        painter.fillRect(QRectF(topLeft.x(), topLeft.y() + height - m_underline, m_width, m_underline),
                         PageStyle::accent());
    const QPointF text = topLeft + QPointF(m_indent, m_padding);
    if (m_markerDistance > 0)
        m_marker.paint(painter, text - QPointF(m_markerDistance, 0));
    m_text.paint(painter, text);
}

PictureBox::PictureBox(const QImage &image, const QSizeF &size, const StyledText &caption,
                       const PageStyle &style)
    : m_image(image), m_size(size), m_caption(caption), m_gap(style.mm(1.6)), m_line(style.mm(0.15))
{
    height = m_size.height() + m_gap + m_caption.height();
}

void PictureBox::paint(QPainter &painter, const QPointF &topLeft) const
{
    const QRectF frame(topLeft, m_size);
    painter.drawImage(frame, m_image);
    painter.setPen(QPen(PageStyle::rule(), m_line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    m_caption.paint(painter, topLeft + QPointF(0, m_size.height() + m_gap));
}

RowBox::RowBox(const QVector<StyledText> &cells, const QVector<qreal> &lefts, bool isHead,
               const PageStyle &style)
    : m_cells(cells)
    , m_lefts(lefts)
    , m_isHead(isHead)
    , m_padding(padding(style))
    , m_width(style.textArea().width())
    , m_line(style.mm(0.15))
{
    for (const StyledText &cell : m_cells)
        height = qMax(height, cell.height());
    height += 2 * m_padding;
}

qreal RowBox::excess() const
{
    qreal most = 0;
    for (const StyledText &cell : m_cells)
        most = qMax(most, cell.excess());
    return most;
}

void RowBox::paint(QPainter &painter, const QPointF &topLeft) const
{
    if (m_isHead)
        painter.fillRect(QRectF(topLeft, QSizeF(m_width, height)), PageStyle::shade());
    painter.setPen(QPen(m_isHead ? PageStyle::accent() : PageStyle::rule(), m_line));
    const qreal bottom = topLeft.y() + height;
    painter.drawLine(QPointF(topLeft.x(), bottom), QPointF(topLeft.x() + m_width, bottom));
    for (int i = 0; i < m_cells.size(); ++i)
        m_cells.at(i).paint(painter, topLeft + QPointF(m_lefts.at(i) + m_padding, m_padding));
}

ContentsBox::ContentsBox(const StyledText &title, const StyledText &number, qreal indent,
                         const PageStyle &style)
    : m_title(title)
    , m_number(number)
    , m_indent(indent)
    , m_width(style.textArea().width())
    , m_step(style.mm(1.8))
{
    height = qMax(m_title.height(), m_number.height());
}

void ContentsBox::paint(QPainter &painter, const QPointF &topLeft) const
{
    m_title.paint(painter, topLeft + QPointF(m_indent, 0));
    const qreal numberLeft = m_width - m_number.naturalWidth();
    m_number.paint(painter, topLeft + QPointF(numberLeft, 0));
    // The dots of all lines stand below each other.
    const qreal from = m_indent + m_title.naturalWidth() + m_step;
    const qreal dot = m_step / 7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(PageStyle::rule());
    const qreal last = m_width - 6 * m_step;
    const int dots = qCeil((last - from) / m_step);
    for (int i = 0; i < dots; ++i)
        painter.drawEllipse(topLeft + QPointF(last - i * m_step, height * 0.68), dot, dot);
}
