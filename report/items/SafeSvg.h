#pragma once

class QByteArray;

/// The SVG that is drawn for one from a report file. Nothing in it reaches for other files, and it is
/// bounded in size, depth and effort. Empty if there is nothing that can be drawn so.
QByteArray safeSvg(const QByteArray &svg);
