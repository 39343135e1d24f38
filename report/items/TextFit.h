#pragma once

class QFont;
class QSizeF;
class QString;

/// The scale, at most 1, at which a text fits into a box: text too long for its box becomes smaller
/// instead of being clipped. 1 for an empty text and for a box without room.
double textFitScale(const QString &text, const QFont &font, const QSizeF &box);
