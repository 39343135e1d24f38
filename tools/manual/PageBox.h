#pragma once

#include "tools/manual/StyledText.h"

#include <QImage>

#include <memory>

class QPainter;

/// Something that stands on a page as a whole: a paragraph, a picture with its caption, a row of a table.
class PageBox
{
public:
    virtual ~PageBox() = default;

    virtual void paint(QPainter &painter, const QPointF &topLeft) const = 0;
    /// By how much something in it that cannot be broken runs over the room it has.
    virtual qreal excess() const { return 0; }

    qreal height = 0;
    /// The room above it, unless it is the first of a page.
    qreal before = 0;
    /// Stays on the page of what follows: a heading, or words that lead to a list.
    bool keepWithNext = false;
    /// May go to the next page while text that follows fills this one.
    bool mayFloat = false;
    bool startsPage = false;
    /// Ends what may be filled up before a picture that waits.
    bool isHeading = false;
    /// Stands above this one again where a page begins with it.
    std::shared_ptr<const PageBox> repeated;
    /// The place in the file that links and bookmarks lead to; may be empty.
    QString anchor;
    /// Of a chapter's heading: what the pages from here on have at their head.
    QString chapter;
};

using PageBoxes = std::vector<std::shared_ptr<PageBox>>;

/// A text, indented, with a marker beside it or on a shade.
class TextBox : public PageBox
{
public:
    TextBox(const StyledText &text, qreal indent) : m_text(text), m_indent(indent) { height = text.height(); }

    void setMarker(const StyledText &marker, qreal distance);
    /// Puts it on a shade with a bar at its left, which takes up the whole width.
    void setShade(const PageStyle &style, bool withBar);
    /// Draws a line below it.
    void setUnderline(const PageStyle &style);

    void paint(QPainter &painter, const QPointF &topLeft) const override;
    qreal excess() const override { return m_text.excess(); }

private:
    StyledText m_text;
    StyledText m_marker;
    qreal m_indent;
    qreal m_markerDistance = 0;
    qreal m_padding = 0;
    qreal m_width = 0;
    qreal m_bar = 0;
    qreal m_underline = 0;
};

/// A picture in a thin frame with its caption below.
class PictureBox : public PageBox
{
public:
    PictureBox(const QImage &image, const QSizeF &size, const StyledText &caption, const PageStyle &style);

    QSizeF pictureSize() const { return m_size; }
    void paint(QPainter &painter, const QPointF &topLeft) const override;

private:
    QImage m_image;
    QSizeF m_size;
    StyledText m_caption;
    qreal m_gap;
    qreal m_line;
};

/// A row of a table between two lines.
class RowBox : public PageBox
{
public:
    RowBox(const QVector<StyledText> &cells, const QVector<qreal> &lefts, bool isHead,
           const PageStyle &style);

    /// The room between a line and the text.
    static qreal padding(const PageStyle &style) { return style.mm(1.4); }
    void paint(QPainter &painter, const QPointF &topLeft) const override;
    qreal excess() const override;

private:
    QVector<StyledText> m_cells;
    QVector<qreal> m_lefts;
    bool m_isHead;
    qreal m_padding;
    qreal m_width;
    qreal m_line;
};

/// A line of the contents: the title, dots, the page.
class ContentsBox : public PageBox
{
public:
    ContentsBox(const StyledText &title, const StyledText &number, qreal indent, const PageStyle &style);

    void paint(QPainter &painter, const QPointF &topLeft) const override;

private:
    StyledText m_title;
    StyledText m_number;
    qreal m_indent;
    qreal m_width;
    qreal m_step;
};
