#include "curve/ui/IsolatedTextDocument.h"

#include <QImage>

namespace IVCurve {

QVariant IsolatedTextDocument::loadResource(int type, const QUrl &)
{
    if (type != ImageResource)
        return QVariant();
    // The layout reads a picture that it is not given from disk by itself: it is given an invisible one.
    QImage invisible(1, 1, QImage::Format_ARGB32_Premultiplied);
    invisible.fill(Qt::transparent);
    return invisible;
}

} // namespace IVCurve
