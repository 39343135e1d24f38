// A filled array test report as PDF, beside the same shapes and texts drawn straight into a PDF.

#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "benchmarks/support/Comparisons.h"
#include "benchmarks/support/DrawnShapes.h"
#include "benchmarks/support/SampleReports.h"
#include "benchmarks/support/TemporaryHome.h"
#include "report/ReportScene.h"
#include "report/items/GraphicsTextItem.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportTableCell.h"
#include "res/Resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFileInfo>
#include <QGraphicsSvgItem>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>

#include <memory>
#include <vector>

namespace {

constexpr int dotsPerInch = 1200;
constexpr int pointsPerInch = 72;

TemporaryHome *home = nullptr;

/// A text and the box it is wrapped in, both in units of the page.
struct Text
{
    QRectF box;
    QString text;
    QFont font;
    QColor colour;
};

/// A cell or a sheet.
struct Box
{
    QRectF rect;
    QPen pen;
    QBrush brush;
};

/// A report as a plain list of what is to be seen on its page.
struct Page
{
    QRectF sheet;
    std::vector<Box> boxes;
    std::vector<Text> texts;
    std::vector<DrawnShapes> pictures;
};

void take(const GraphicsTextItem *item, Page &page)
{
    if (item->toPlainText().isEmpty())
        return;
    QFont font = item->font();
    // From points on the screen to points of a page that is drawn in its own units.
    font.setPointSizeF(font.pointSizeF() * item->sceneTransform().m11());
    page.texts.push_back({item->mapRectToScene(item->boundingRect()).adjusted(4, 4, -4, 0),
                          item->toPlainText(), font, item->defaultTextColor()});
}

Page pageOf(const ReportScene &scene)
{
    Page page;
    page.sheet = scene.pages().first()->sceneBoundingRect();
    page.boxes.push_back({page.sheet, Qt::NoPen, Qt::white});
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    for (QGraphicsItem *item : items) {
        if (const auto *cell = qgraphicsitem_cast<ReportTableCell *>(item))
            page.boxes.push_back(
                {cell->mapRectToScene(cell->boundingRect()), QPen(Qt::black, 1.0), cell->backgroundColour()});
        else if (const auto *text = dynamic_cast<const GraphicsTextItem *>(item))
            take(text, page);
        else if (auto *svg = qgraphicsitem_cast<QGraphicsSvgItem *>(item))
            page.pictures.emplace_back(svg->renderer(), svg->elementId(), svg->boundingRect(),
                                       svg->sceneTransform());
    }
    return page;
}

void draw(const Page &page, const QString &path)
{
    QPdfWriter writer(path);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    const double scale = writer.width() / page.sheet.width();
    // A text is laid out in the dots of the device, so the points of the screen are brought there.
    const double fontScale = scale * qApp->primaryScreen()->logicalDotsPerInchY() / dotsPerInch;
    const QTransform toDevice = QTransform::fromScale(scale, scale);

    painter.setTransform(toDevice);
    for (const Box &box : page.boxes) {
        painter.setPen(box.pen);
        painter.setBrush(box.brush);
        painter.drawRect(box.rect);
    }
    for (const DrawnShapes &picture : page.pictures)
        picture.draw(painter, toDevice);
    painter.resetTransform();
    for (const Text &text : page.texts) {
        QFont font = text.font;
        font.setPointSizeF(font.pointSizeF() * fontScale);
        painter.setFont(font);
        painter.setPen(text.colour);
        painter.drawText(toDevice.mapRect(text.box), Qt::TextWordWrap, text.text);
    }
}

QString filledReport()
{
    return home->path(QStringLiteral("Filled.kelatr"));
}

std::unique_ptr<ReportScene> loadedReport()
{
    auto scene = std::make_unique<ReportScene>(nullptr);
    if (!scene->load(filledReport()))
        qFatal("cannot load the filled report");
    return scene;
}

QString target(const char *name)
{
    return home->path(QString::fromLatin1(name));
}

/// Tells how large the file became, so that one can see that both have written a page.
void tellSize(benchmark::State &state, const QString &path)
{
    state.counters["kB"] = static_cast<double>(QFileInfo(path).size()) / 1000;
}

void reportAsPdf(benchmark::State &state)
{
    const auto report = loadedReport();
    const QString path = target("report.pdf");
    for (auto _ : state) {
        if (!report->writePdf(path))
            state.SkipWithError("the PDF was not written");
    }
    tellSize(state, path);
}

void pageAsPdf(benchmark::State &state)
{
    const Page page = pageOf(*loadedReport());
    const QString path = target("page.pdf");
    for (auto _ : state)
        draw(page, path);
    tellSize(state, path);
    state.counters["boxes"] = static_cast<double>(page.boxes.size());
    state.counters["texts"] = static_cast<double>(page.texts.size());
    for (const DrawnShapes &picture : page.pictures)
        state.counters["shapes"] += static_cast<double>(picture.count());
}

BENCHMARK(reportAsPdf)->Unit(benchmark::kMillisecond);
BENCHMARK(pageAsPdf)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    TemporaryHome temporaryHome;
    home = &temporaryHome;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    useLanguage(QStringLiteral("en"), QLocale::c());
    writeFilledReport(filledReport());
    return Comparisons()
        .ratio("a filled report as PDF / its shapes and texts alone", "reportAsPdf", "pageAsPdf", 3)
        .run(argc, argv);
}
