#pragma once

#include <QPainterPath>
#include <QPen>
#include <QTransform>

#include <vector>

class QPainter;
class QSvgRenderer;

/// The shapes that a vector picture comes to, to be drawn again without the picture: the least that
/// drawing it can cost.
class DrawnShapes
{
public:
    /// The shapes of a picture, or of an element of it, drawn to `bounds` in coordinates that `transform`
    /// leads out of.
    DrawnShapes(QSvgRenderer *renderer, const QString &elementId, const QRectF &bounds,
                const QTransform &transform);

    /// Draws them in coordinates that `transform` leads out of. The painter's own transformation is replaced.
    void draw(QPainter &painter, const QTransform &transform) const;
    size_t count() const { return m_shapes.size(); }

private:
    struct Shape
    {
        QPainterPath path;
        QPen pen;
        QBrush brush;
        QTransform transform;
    };
    class Engine;
    class Device;

    std::vector<Shape> m_shapes;
};
