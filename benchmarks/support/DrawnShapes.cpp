#include "benchmarks/support/DrawnShapes.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <limits>

/// Notes every shape with the state that it is drawn in.
class DrawnShapes::Engine : public QPaintEngine
{
public:
    explicit Engine(std::vector<Shape> &shapes) : QPaintEngine(AllFeatures), m_shapes(shapes) {}

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    Type type() const override { return User; }
    void drawPath(const QPainterPath &path) override
    {
        m_shapes.push_back({path, state->pen(), state->brush(), state->transform()});
    }
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        for (int i = 0; i < count; ++i)
            i == 0 ? path.moveTo(points[i]) : path.lineTo(points[i]);
        if (mode != PolylineMode)
            path.closeSubpath();
        drawPath(path);
    }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override
    {
        qFatal("pictures of pixels are no shapes");
    }

private:
    std::vector<Shape> &m_shapes;
};

/// A sheet of any size to note shapes on.
class DrawnShapes::Device : public QPaintDevice
{
public:
    explicit Device(std::vector<Shape> &shapes) : m_engine(shapes) {}

    QPaintEngine *paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
        case PdmWidthMM:
        case PdmHeightMM:
            return 2000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return std::numeric_limits<int>::max();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    mutable Engine m_engine;
};

DrawnShapes::DrawnShapes(QSvgRenderer *renderer, const QString &elementId, const QRectF &bounds,
                         const QTransform &transform)
{
    Device device(m_shapes);
    QPainter painter(&device);
    painter.setTransform(transform);
    if (elementId.isEmpty())
        renderer->render(&painter, bounds);
    else
        renderer->render(&painter, elementId, bounds);
}

void DrawnShapes::draw(QPainter &painter, const QTransform &transform) const
{
    for (const Shape &shape : m_shapes) {
        painter.setTransform(shape.transform * transform);
        painter.setPen(shape.pen);
        painter.setBrush(shape.brush);
        painter.drawPath(shape.path);
    }
}
