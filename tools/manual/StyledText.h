#pragma once

#include "tools/manual/ManualText.h"
#include "tools/manual/PageStyle.h"

#include <QSharedPointer>
#include <QTextDocument>

#include <functional>

class QPainter;

/// How a text looks.
struct TextLook
{
    qreal points = 10;
    bool strong = false;
    QColor colour = PageStyle::ink();
    /// Height of a line, in percent of the font's own.
    int lineHeight = 128;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// What the manual knows of a link's aim: the name of the place in the file, and what is to stand behind the
/// link's words.
struct LinkAim
{
    QString anchor;
    QString remark;
};

using LinkAims = std::function<LinkAim(const QString &link)>;

/// A text laid out in a given width for the device of a style.
class StyledText
{
public:
    StyledText() = default;
    StyledText(const ManualText &text, const TextLook &look, const PageStyle &style, qreal width,
               const LinkAims &aims = {});

    qreal height() const;
    /// The width that it takes where no line breaks.
    qreal naturalWidth() const;
    /// The width of what cannot be broken.
    qreal minimalWidth() const;
    /// By how much that is wider than the room for the text.
    qreal excess() const;
    void paint(QPainter &painter, const QPointF &topLeft) const;

private:
    void insert(const ManualRun &run, const TextLook &look, const LinkAims &aims);
    void insertIcon(const ManualRun &run, const TextLook &look);

    QSharedPointer<QTextDocument> m_document;
};
