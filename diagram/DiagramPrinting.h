#pragma once

class QGraphicsScene;
class QPrinter;

/// A diagram on paper: one sheet, as large as it fits.
namespace DiagramPrinting {

/// Gives a printer the sheet: A4, landscape.
void setUp(QPrinter &printer);

/// Draws the sheet. False when the printer cannot begin.
bool paint(QGraphicsScene &scene, QPrinter &printer);

} // namespace DiagramPrinting
