#pragma once

#include <QPoint>

class QPainter;
class QPrinter;

/// What all printed documents share on paper.
namespace PrintedSheet {

/// Gives a printer A4 paper printed to its edges.
void setUpA4(QPrinter &printer);

/// A position on the sheet in device units, cut to whole units, from millimetres.
QPoint millimetres(const QPrinter &printer, double x, double y);

/// Draws the mark with the program's name at the top left of the sheet.
void drawMark(QPainter &painter, const QPrinter &printer);

} // namespace PrintedSheet
