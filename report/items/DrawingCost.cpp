#include "report/items/DrawingCost.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <cmath>

namespace {

// In nanoseconds, as measured on a slow machine.
constexpr double costOfDot = 2;
constexpr double costOfDotOfOutline = 100;
/// The dots of a long outline do not fit into the painter's memory, and it goes along the outline many times.
constexpr double costOfDotOfLongOutline = 1000;
constexpr double longOutline = 2000;
constexpr double costOfPoint = 200;
constexpr double costOfDash = 500;
constexpr double costOfGlyph = 200;
constexpr double costAllowed = 0.5e9;
/// There is an outline on each side of a line, and its corners and ends have theirs.
constexpr double outlinesOfLine = 3;
/// A line of more dashes than these is drawn without.
constexpr double dashesOfLine = 10000;

/// Reckons what painting would cost.
class Reckoner final : public QPaintEngine
{
public:
    explicit Reckoner(const QSize &area) : QPaintEngine(AllFeatures), m_area(QPointF(), QSizeF(area)) {}

    double cost() const { return m_cost; }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &) override {}

    void drawPath(const QPainterPath &path) override
    {
        const QPen &pen = painter()->pen();
        const bool isStroked = pen.style() != Qt::NoPen;
        const bool isFilled = painter()->brush().style() != Qt::NoBrush;
        add(path.elementCount() * costOfPoint);
        if (!isStroked && !isFilled)
            return;
        const double dash = isStroked && pen.style() != Qt::SolidLine ? lengthOfDash(pen) : 0;
        const QTransform &transform = painter()->combinedTransform();
        const double diagonal = std::hypot(m_area.width(), m_area.height());
        double length = 0;
        double dashes = 0;
        for (int i = 1; i < path.elementCount(); ++i) {
            if (path.elementAt(i).isMoveTo())
                continue;
            const QPointF step = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
            const QPointF seen = transform.map(step) - transform.map(QPointF());
            length += qMin(diagonal, std::hypot(seen.x(), seen.y()));
            if (dash > 0)
                dashes += qMin(dashesOfLine, std::hypot(step.x(), step.y()) / dash);
        }
        if (isFilled) {
            addOutline(length);
            addArea(transform.mapRect(path.controlPointRect()));
        }
        if (isStroked) {
            addOutline(length * outlinesOfLine);
            const double width = qMin(diagonal, pen.widthF() * std::sqrt(std::abs(transform.determinant())));
            add(length * width * costOfDot);
        }
        add(dashes * costOfDash);
    }

    void drawPolygon(const QPointF *points, int count, PolygonDrawMode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QVector<QPointF>(points, points + count)));
        drawPath(path);
    }

    void drawPixmap(const QRectF &rect, const QPixmap &, const QRectF &) override { addSeen(rect); }
    void drawTiledPixmap(const QRectF &rect, const QPixmap &, const QPointF &) override { addSeen(rect); }
    void drawImage(const QRectF &rect, const QImage &, const QRectF &, Qt::ImageConversionFlags) override
    {
        addSeen(rect);
    }
    void drawTextItem(const QPointF &, const QTextItem &item) override
    {
        add(item.text().size() * costOfGlyph);
    }

private:
    static double lengthOfDash(const QPen &pen)
    {
        double sum = 0;
        const QVector<qreal> pattern = pen.dashPattern();
        for (const qreal length : pattern)
            sum += length;
        return sum * (pen.widthF() > 0 ? pen.widthF() : 1) / qMax(1, pattern.size());
    }

    void addSeen(const QRectF &rect) { addArea(painter()->combinedTransform().mapRect(rect)); }

    void addArea(const QRectF &rect)
    {
        const QRectF seen = rect & m_area;
        add(seen.width() * seen.height() * costOfDot);
    }

    void addOutline(double length)
    {
        add(length * (length < longOutline ? costOfDotOfOutline : costOfDotOfLongOutline));
    }

    void add(double cost)
    {
        // What comes to no number lies out of sight, as the painter has it.
        if (std::isfinite(cost))
            m_cost += cost;
    }

    QRectF m_area;
    double m_cost = 0;
};

/// A device of some size on which nothing is painted.
class Rehearsal final : public QPaintDevice
{
public:
    explicit Rehearsal(const QSize &area) : m_area(area), m_reckoner(area) {}

    QPaintEngine *paintEngine() const override { return &m_reckoner; }
    double cost() const { return m_reckoner.cost(); }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int dotsPerInch = 96;
        constexpr double millimetresPerInch = 25.4;
        switch (metric) {
        case PdmWidth:
            return m_area.width();
        case PdmHeight:
            return m_area.height();
        case PdmWidthMM:
            return qRound(m_area.width() * millimetresPerInch / dotsPerInch);
        case PdmHeightMM:
            return qRound(m_area.height() * millimetresPerInch / dotsPerInch);
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return dotsPerInch;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return qRound(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    QSize m_area;
    mutable Reckoner m_reckoner;
};

} // namespace

bool isDrawnQuickly(QSvgRenderer &renderer, const QSize &area)
{
    Rehearsal rehearsal(area);
    QPainter painter(&rehearsal);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(area)));
    painter.end();
    return rehearsal.cost() <= costAllowed;
}
