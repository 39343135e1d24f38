#include "tests/tools/TextExtent.h"

#include "tests/tools/FormReading.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

TextExtent extentOf(const QString &text, double pointSize, bool bold, double wrapWidth)
{
    QFont font("Liberation Sans");
    font.setPointSizeF(pointSize * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    font.setBold(bold);
    QTextDocument document;
    document.setDefaultFont(font);
    document.setPlainText(text);
    document.setTextWidth(wrapWidth);
    TextExtent extent;
    extent.height = document.size().height() - document.documentMargin();
    extent.width = document.idealWidth();
    extent.lines = document.firstBlock().layout()->lineCount();
    return extent;
}

TextExtent extentOfBox(const QDomElement &element)
{
    const QDomElement sized = element.hasAttribute("fontSize") ? element : element.parentNode().toElement();
    return extentOf(labelOf(element), sized.attribute("fontSize").toDouble(),
                    element.attribute("fontWeight") == "75", element.attribute("width").toDouble());
}
