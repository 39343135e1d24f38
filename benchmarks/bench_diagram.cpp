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

/// What is to be seen of a diagram.
struct Primitives
{
    QRectF bounds;
    std::vector<QRectF> rects;
    std::vector<QRectF> thinRects;
    std::vector<QRectF> discs;
    std::vector<QVector<QLineF>> lines;
    std::vector<std::pair<QRectF, QString>> texts;
    QFont font;
};

/// What stands on a component.
void takeFront(const QGraphicsItem *component, Primitives &all)
{
    const QPointF place = component->scenePos();
    switch (component->type()) {
    case AcIsolatorType:
        all.discs.push_back(QRectF(15, 15, 25, 25).translated(place));
        break;
    case DcIsolatorType:
        all.discs.push_back(QRectF(12, 12, 15, 15).translated(place));
        break;
    case GenerationMeterType:
        all.thinRects.push_back(QRectF(15, 0, 90, 30).translated(place));
        break;
    case DistributionBoardType:
        all.thinRects.push_back(QRectF(10, 10, 120, 30).translated(place));
        for (int i = 1; i < 7; ++i)
            all.lines.push_back({QLineF(10 + i * 120 / 7.0, 10, 10 + i * 120 / 7.0, 40).translated(place)});
        break;
    default:
        break;
    }
}

Primitives primitivesOf(const DiagramGraphicsScene &scene)
{
    Primitives all;
    all.bounds = scene.itemsBoundingRect();
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (const auto *label = dynamic_cast<DiagramLabel *>(item)) {
            all.thinRects.push_back(label->sceneBoundingRect());
            all.texts.emplace_back(label->sceneBoundingRect(), label->text());
            all.font = label->font();
        } else if (const auto *wire = dynamic_cast<DiagramConnection *>(item)) {
            const Cable &cable = Cable::ofType(wire->cableType());
            QVector<QLineF> lines = CableLines::middle(wire->route().points());
            if (cable.hasOuterWires)
                lines = CableLines::outer(wire->route().points(), cable.halfWidth) +
                        (cable.hasMiddleWire ? lines : QVector<QLineF>());
            all.lines.push_back(lines);
        } else if (isComponentType(item->type())) {
            all.rects.push_back(item->sceneBoundingRect());
            takeFront(item, all);
        }
    }
    return all;
}

void draw(const Primitives &all, const QString &path)
{
    QPdfWriter writer(path);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(QPageLayout::Landscape);
    QPainter painter(&writer);
    const double scale = qMin(writer.width() / all.bounds.width(), writer.height() / all.bounds.height());
    painter.scale(scale, scale);
    painter.translate(-all.bounds.topLeft());
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const QVector<QLineF> &lines : all.lines)
        painter.drawLines(lines);
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::white);
    for (const QRectF &rect : all.rects)
        painter.drawRect(rect);
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    for (const QRectF &rect : all.thinRects)
        painter.drawRect(rect);
    for (const QRectF &disc : all.discs)
        painter.drawEllipse(disc);
    QFont font = all.font;
    font.setPixelSize(12);
    painter.setFont(font);
    for (const auto &text : all.texts)
        painter.drawText(text.first, Qt::AlignCenter, text.second);
}

void primitivesAsPdf(benchmark::State &state)
{
    const Primitives all = primitivesOf(*loadedDiagram());
    const QString path = home->path(QStringLiteral("primitives.pdf"));
    for (auto _ : state)
        draw(all, path);
    tellSize(state, path);
    state.counters["texts"] = static_cast<double>(all.texts.size());
}

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
    QGraphicsView view(scene.get());
    view.resize(1200, 900);
    view.show();
    view.centerOn(hub);
    QCoreApplication::processEvents();
    double step = 1;
    for (auto _ : state) {
        hub->moveBy(step, step);
        step = -step;
        QCoreApplication::processEvents();
        view.viewport()->repaint();
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
        .ratio("a diagram as PDF / its lines, rectangles and texts alone", "diagramAsPdf", "primitivesAsPdf",
               2)
        .limit("moving a component with 20 wires, to the repainted view", "moveComponent", 16)
        .run(argc, argv);
}
