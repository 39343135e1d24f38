#pragma once

#include <QString>

class QDomElement;

/// What a text occupies at the forms' 96 dots per inch when it may wrap at a width.
struct TextExtent
{
    double width = 0.0;
    /// Down to the last line: the margin below it may be cut without harm.
    double height = 0.0;
    int lines = 0;
};

TextExtent extentOf(const QString &text, double pointSize, bool bold, double wrapWidth);

/// What the label of an element occupies, with a size of letters that may be its page's.
TextExtent extentOfBox(const QDomElement &element);
