// A diagram of 500 components and 1,000 wires: loading, saving and printing, beside what none of them can do
// without; and a component with twenty wires that follows the pointer.

#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/RandomNumbers.h"
#include "benchmarks/support/TemporaryHome.h"
#include "diagram/Cable.h"
#include "diagram/CableLines.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramConnection.h"
#include "diagram/DiagramGraphicsScene.h"
#include "diagram/DiagramItemType.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDomDocument>
#include <QFileInfo>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QPainter>
#include <QPdfWriter>

#include <memory>
#include <vector>

namespace {

constexpr int componentCount = 500;
constexpr int wireCount = 1000;
constexpr int wiresOfTheHub = 20;
constexpr int columns = 25;
constexpr int dotsPerInch = 1200;

TemporaryHome *home = nullptr;

const char *const tags[] = {"inverter", "dc_isolator", "ac_isolator", "generation_meter",
                            "distribution_board"};
const char *const cables[] = {"Single", "DC", "AC"};

QString end(const char *tag, int component, int side)
{
    return QStringLiteral("<%1 connectedItemId=\"id%2\" connectedPosX=\"%3\" connectedPosY=\"20\" "
                          "direction=\"%4\"/>")
        .arg(QLatin1String(tag))
        .arg(component)
        .arg(side == 4 ? 40 : 0)
        .arg(side);
}

/// The first component has more wires than others.
const QByteArray &diagram()
{
    static const QByteArray xml = [] {
        RandomNumbers random;
        QString text = QStringLiteral("<installation_diagram>");
        for (int i = 0; i < componentCount; ++i) {
            const int x = 260 * (i % columns);
            const int y = 180 * (i / columns);
            text += QStringLiteral("<%1 id=\"id%2\" x=\"%3\" y=\"%4\"><label x=\"%3\" y=\"%5\" width=\"-1\" "
                                   "height=\"-1\" text=\"Component number %2\"/></%1>")
                        .arg(QLatin1String(tags[i % 5]))
                        .arg(i + 1)
                        .arg(x)
                        .arg(y)
                        .arg(y + 110);
        }
        for (int i = 0; i < wireCount; ++i) {
            const int from = i < wiresOfTheHub ? 1 : 2 + random.below(componentCount - 1);
            const int to = 2 + random.below(componentCount - 1);
            text += QStringLiteral("<connection type=\"%1\" id=\"id%2\">%3%4</connection>")
                        .arg(QLatin1String(cables[i % 3]))
                        .arg(componentCount + i + 1)
                        .arg(end("connectionA", from, 4), end("connectionB", to, 8));
        }
        return (text + QStringLiteral("</installation_diagram>")).toUtf8();
    }();
    return xml;
}

std::unique_ptr<DiagramGraphicsScene> loadedDiagram()
{
    auto scene = std::make_unique<DiagramGraphicsScene>();
    if (!scene->readXml(diagram()))
        qFatal("cannot load the diagram");
    return scene;
}

void load(benchmark::State &state)
{
    diagram();
    for (auto _ : state) {
        auto scene = loadedDiagram();
        benchmark::DoNotOptimize(scene);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
}

/// A handle or a wire without anything that is peculiar to it.
class BareItem : public QGraphicsItem
{
public:
    QRectF boundingRect() const override { return QRectF(-5, -5, 10, 10); }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}
};

void readBareItem(QGraphicsScene &scene, const QDomElement &element)
{
    auto *item = new BareItem;
    item->setPos(element.attribute(QStringLiteral("x")).toDouble(),
                 element.attribute(QStringLiteral("y")).toDouble());
    scene.addItem(item);
    const QDomElement label = element.firstChildElement(QStringLiteral("label"));
    if (label.isNull()) {
        // The ends of a wire.
        scene.addItem(new BareItem);
        scene.addItem(new BareItem);
        return;
    }
    auto *text = new QGraphicsTextItem;
    text->setHtml(QStringLiteral("<center>%1</center>").arg(label.attribute(QStringLiteral("text"))));
    text->setPos(label.attribute(QStringLiteral("x")).toDouble(),
                 label.attribute(QStringLiteral("y")).toDouble());
    scene.addItem(text);
}

void loadBare(benchmark::State &state)
{
    diagram();
    for (auto _ : state) {
        auto scene = std::make_unique<QGraphicsScene>();
        QDomDocument document;
        document.setContent(diagram());
        for (QDomElement element = document.documentElement().firstChildElement(); !element.isNull();
             element = element.nextSiblingElement())
            readBareItem(*scene, element);
        benchmark::DoNotOptimize(scene);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
}

void save(benchmark::State &state)
{
    const auto scene = loadedDiagram();
    for (auto _ : state)
        benchmark::DoNotOptimize(scene->toXml());
}

struct PlainElement
{
    QString tag;
    std::vector<std::pair<QString, QString>> attributes;
    std::vector<PlainElement> children;
};

PlainElement plain(const QDomElement &element)
{
    PlainElement copy{element.tagName(), {}, {}};
    for (int i = 0; i < element.attributes().size(); ++i) {
        const QDomAttr attribute = element.attributes().item(i).toAttr();
        copy.attributes.emplace_back(attribute.name(), attribute.value());
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        copy.children.push_back(plain(child));
    return copy;
}

QDomElement built(QDomDocument &document, const PlainElement &source)
{
    QDomElement element = document.createElement(source.tag);
    for (const auto &attribute : source.attributes)
        element.setAttribute(attribute.first, attribute.second);
    for (const PlainElement &child : source.children)
        element.appendChild(built(document, child));
    return element;
}

void saveDom(benchmark::State &state)
{
    QDomDocument source;
    source.setContent(diagram());
    const PlainElement root = plain(source.documentElement());
    for (auto _ : state) {
        QDomDocument document;
        document.appendChild(built(document, root));
        benchmark::DoNotOptimize(document.toByteArray(2));
    }
}

void tellSize(benchmark::State &state, const QString &path)
{
    state.counters["kB"] = static_cast<double>(QFileInfo(path).size()) / 1000;
}

void diagramAsPdf(benchmark::State &state)
{
    const auto scene = loadedDiagram();
    const QString path = home->path(QStringLiteral("diagram.pdf"));
    for (auto _ : state) {
        if (!scene->writePdf(path))
            state.SkipWithError("the PDF was not written");
    }
    tellSize(state, path);
}

/// One thing that is to be seen of a diagram: a rectangle or a disc, lines, or words in a rectangle.
struct Primitive
{
    QPen pen;
    QBrush brush;
    QRectF rect;
    bool isRound = false;
    QVector<QLineF> lines;
    QString text;
};

/// All of them, those on top last.
struct Primitives
{
    QRectF bounds;
    std::vector<Primitive> all;
    QFont font;
};

const QPen thickPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
const QPen thinPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
const QPen captionPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
const QPen wirePen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);

void takeComponent(const QGraphicsItem *component, std::vector<Primitive> &all)
{
    const QPointF place = component->scenePos();
    const int type = component->type();
    const QRectF housing = component->sceneBoundingRect().adjusted(1, 1, -1, -1);
    const auto take = [&](const QPen &pen, Qt::GlobalColor colour, const QRectF &rect, bool isRound) {
        all.push_back({pen, colour, rect, isRound, {}, {}});
    };
    if (type == AcIsolatorType) {
        take(thickPen, Qt::white, housing, false);
        take(thinPen, Qt::darkGray, QRectF(15, 15, 25, 25).translated(place), true);
    } else if (type == DcIsolatorType) {
        take(thickPen, Qt::white, housing, false);
        take(thinPen, Qt::black, QRectF(12, 12, 15, 15).translated(place), true);
    } else if (type == GenerationMeterType) {
        take(thickPen, Qt::darkGray, housing, false);
        take(thinPen, Qt::white, QRectF(15, 0, 90, 30).translated(place), false);
    } else if (type == DistributionBoardType) {
        take(thickPen, Qt::darkGray, housing, false);
        take(thinPen, Qt::white, QRectF(10, 10, 120, 30).translated(place), false);
        QVector<QLineF> breakers;
        for (int i = 1; i < 7; ++i)
            breakers.append(QLineF(10 + i * 120 / 7.0, 10, 10 + i * 120 / 7.0, 40).translated(place));
        all.push_back({thinPen, Qt::NoBrush, {}, false, breakers, {}});
    } else {
        take(thickPen, Qt::gray, housing, false);
    }
}

void takeWire(const DiagramConnection &wire, std::vector<Primitive> &all)
{
    const Cable &cable = Cable::ofType(wire.cableType());
    QVector<QLineF> lines;
    if (cable.hasOuterWires)
        lines = CableLines::outer(wire.route().points(), cable.halfWidth);
    if (cable.hasMiddleWire)
        lines += CableLines::middle(wire.route().points());
    all.push_back({wirePen, Qt::NoBrush, {}, false, lines, {}});
}

Primitives primitivesOf(const DiagramGraphicsScene &scene)
{
    Primitives seen;
    seen.bounds = scene.itemsBoundingRect();
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (const auto *label = dynamic_cast<DiagramLabel *>(item)) {
            const QRectF rect = label->sceneBoundingRect().adjusted(0.5, 0.5, -0.5, -0.5);
            seen.all.push_back({captionPen, Qt::white, rect, false, {}, label->text()});
            seen.font = label->font();
        } else if (const auto *wire = dynamic_cast<DiagramConnection *>(item)) {
            takeWire(*wire, seen.all);
        } else if (isComponentType(item->type())) {
            takeComponent(item, seen.all);
        }
    }
    return seen;
}

void draw(const Primitives &seen, const QString &path)
{
    QPdfWriter writer(path);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    QPainter painter(&writer);
    const double scale = qMin(writer.width() / seen.bounds.width(), writer.height() / seen.bounds.height());
    painter.scale(scale, scale);
    painter.translate(-seen.bounds.topLeft());
    QFont font = seen.font;
    font.setPixelSize(12);
    painter.setFont(font);
    for (const Primitive &one : seen.all) {
        // What stays the same is not set anew.
        if (painter.pen() != one.pen)
            painter.setPen(one.pen);
        if (painter.brush() != one.brush)
            painter.setBrush(one.brush);
        if (!one.lines.isEmpty())
            painter.drawLines(one.lines);
        else if (one.isRound)
            painter.drawEllipse(one.rect);
        else
            painter.drawRect(one.rect);
        if (!one.text.isEmpty())
            painter.drawText(one.rect, Qt::AlignCenter, one.text);
    }
    // The mark on each sheet, in a font of its own.
    painter.resetTransform();
    painter.setFont(QFont(QStringLiteral("Arial"), 10, QFont::Normal));
    painter.drawText(QPoint(900, 700), QStringLiteral("Created by Kelmar."));
}

void primitivesAsPdf(benchmark::State &state)
{
    const Primitives seen = primitivesOf(*loadedDiagram());
    const QString path = home->path(QStringLiteral("primitives.pdf"));
    for (auto _ : state)
        draw(seen, path);
    tellSize(state, path);
    state.counters["primitives"] = static_cast<double>(seen.all.size());
}

/// A view that knows how often it was painted.
class CountingView : public QGraphicsView
{
public:
    using QGraphicsView::QGraphicsView;
    int paintings() const { return m_paintings; }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QGraphicsView::paintEvent(event);
        ++m_paintings;
    }

private:
    int m_paintings = 0;
};

/// A step of a drag: the component goes to another place, and its wires with it, until the view shows that.
void moveComponent(benchmark::State &state)
{
    const auto scene = loadedDiagram();
    DiagramComponent *hub = nullptr;
    for (QGraphicsItem *item : scene->items()) {
        auto *component = dynamic_cast<DiagramComponent *>(item);
        if (component && component->id() == QLatin1String("id1"))
            hub = component;
    }
    if (!hub)
        qFatal("no component to move");
    CountingView view(scene.get());
    view.resize(1200, 900);
    view.show();
    view.centerOn(hub);
    QCoreApplication::processEvents();
    double step = 1;
    for (auto _ : state) {
        const int before = view.paintings();
        hub->moveBy(step, step);
        step = -step;
        while (view.paintings() == before)
            QCoreApplication::processEvents();
    }
}

BENCHMARK(load)->Unit(benchmark::kMillisecond);
BENCHMARK(loadBare)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Unit(benchmark::kMillisecond);
BENCHMARK(saveDom)->Unit(benchmark::kMillisecond);
BENCHMARK(diagramAsPdf)->Unit(benchmark::kMillisecond);
BENCHMARK(primitivesAsPdf)->Unit(benchmark::kMillisecond);
BENCHMARK(moveComponent)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporaryHome;
    home = &temporaryHome;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Identity::applyToApplication();
    substituteMissingFonts();
    return Comparisons()
        .ratio("loading a diagram / its DOM and bare items", "load", "loadBare", 2)
        .ratio("saving a diagram / its DOM alone", "save", "saveDom", 2)
        .ratio("a diagram as PDF / its lines, shapes and texts alone", "diagramAsPdf", "primitivesAsPdf", 2)
        .limit("moving a component with 20 wires, to the repainted view", "moveComponent", 16)
        .run(argc, argv);
}
