#include "tools/manual/StyledText.h"

#include <QAbstractTextDocumentLayout>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QUrl>

#include <cmath>

namespace {

/// Drawings are shown as pictures with this many pixels on each side: enough for any printer at the size
/// of a letter.
constexpr int iconPixels = 160;

QImage drawn(const QString &file)
{
    // The same picture comes into the file only once.
    static QHash<QString, QImage> known;
    if (known.contains(file))
        return known.value(file);
    QImage image(iconPixels, iconPixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(file).render(&painter, QRectF(image.rect()));
    painter.end();
    known.insert(file, image);
    return image;
}

} // namespace

StyledText::StyledText(const ManualText &text, const TextLook &look, const PageStyle &style, qreal width,
                       const LinkAims &aims)
    : m_document(new QTextDocument)
{
    m_document->setUndoRedoEnabled(false);
    m_document->setDocumentMargin(0);
    m_document->documentLayout()->setPaintDevice(style.device());
    m_document->setDefaultFont(PageStyle::font(look.points, look.strong));
    QTextOption option = m_document->defaultTextOption();
    option.setAlignment(look.alignment);
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::WordWrap);
    m_document->setDefaultTextOption(option);
    QTextBlockFormat format;
    format.setLineHeight(look.lineHeight, QTextBlockFormat::ProportionalHeight);
    QTextCursor(m_document.data()).setBlockFormat(format);
    for (const ManualRun &run : text)
        insert(run, look, aims);
    m_document->setTextWidth(width);
}

void StyledText::insert(const ManualRun &run, const TextLook &look, const LinkAims &aims)
{
    if (!run.icon.isEmpty()) {
        insertIcon(run, look);
        return;
    }
    QTextCursor cursor(m_document.data());
    cursor.movePosition(QTextCursor::End);
    QTextCharFormat format;
    format.setFont(PageStyle::font(look.points, look.strong || run.strong));
    format.setFontItalic(run.emphasis);
    format.setForeground(look.colour);
    QString text = run.text;
    if (run.literal) {
        QFont font(QStringLiteral("Liberation Mono"));
        font.setPointSizeF(look.points * 0.94);
        font.setBold(look.strong || run.strong);
        format.setFont(font);
    }
    if (!run.link.isEmpty() && aims) {
        const LinkAim aim = aims(run.link);
        format.setAnchor(true);
        format.setAnchorHref(aim.anchor);
        format.setForeground(PageStyle::accent());
        text += aim.remark;
    }
    cursor.insertText(text, format);
}

void StyledText::insertIcon(const ManualRun &run, const TextLook &look)
{
    const QUrl name = QUrl::fromLocalFile(run.icon);
    m_document->addResource(QTextDocument::ImageResource, name, drawn(run.icon));
    QTextImageFormat format;
    format.setName(name.toString());
    // As high as the letters around it; in the units of a screen, which the layout scales.
    const qreal size = look.points * 1.5;
    format.setWidth(size);
    format.setHeight(size);
    format.setVerticalAlignment(QTextCharFormat::AlignBaseline);
    QTextCursor cursor(m_document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertImage(format);
}

qreal StyledText::height() const
{
    return m_document->size().height();
}

qreal StyledText::naturalWidth() const
{
    const QSharedPointer<QTextDocument> copy(m_document->clone());
    copy->documentLayout()->setPaintDevice(m_document->documentLayout()->paintDevice());
    copy->setTextWidth(-1);
    return std::ceil(copy->idealWidth());
}

qreal StyledText::minimalWidth() const
{
    qreal widest = 0;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
        widest = qMax(widest, block.layout()->minimumWidth());
    return std::ceil(widest);
}

qreal StyledText::excess() const
{
    return qMax(0.0, minimalWidth() - m_document->textWidth());
}

void StyledText::paint(QPainter &painter, const QPointF &topLeft) const
{
    painter.save();
    painter.translate(topLeft);
    m_document->documentLayout()->draw(&painter, QAbstractTextDocumentLayout::PaintContext());
    painter.restore();
}
