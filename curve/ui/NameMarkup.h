#pragma once

#include <QString>

namespace IVCurve {

/// What the report's HTML takes for the name of a string: the name as it stands, markup included. Only a name
/// whose markup could reach into other cells, or keep the layout of the page busy for hours by tables in
/// tables or by measures beyond all paper, is shown letter by letter.
QString nameMarkup(const QString &name);

} // namespace IVCurve
