#include "tools/manual/ManualPrinter.h"

#include "tools/manual/EditionLayout.h"
#include "tools/manual/ManualContents.h"
#include "tools/manual/PdfNavigation.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgRenderer>

namespace {

/// Enough for the hairlines, and for text set in whole units of the device.
constexpr int resolution = 1200;

ManualText words(const QString &text, const QString &link = QString())
{
    ManualRun run;
    run.text = text;
    run.link = link;
    return {run};
}

class Printer
{
public:
    Printer(const QString &logo, const QString &version) : m_writer(&m_file), m_style(&m_writer)
    {
        m_file.open(QIODevice::WriteOnly);
        m_writer.setPageSize(QPageSize(QPageSize::A4));
        m_writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        m_writer.setResolution(resolution);
        m_writer.setCreator(QStringLiteral("Kelmar ") + version);
        m_logo = logo;
        m_version = version;
    }

    QByteArray print(const QVector<ManualEdition> &editions)
    {
        QStringList titles;
        int page = 2;
        for (const ManualEdition &edition : editions) {
            m_layouts.append(layOutEdition(edition, m_style, page));
            page += m_layouts.last().pages.size();
            titles.append(edition.title);
        }
        m_writer.setTitle(titles.join(QStringLiteral(" / ")));
        QPainter painter(&m_writer);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        printTitlePage(painter);
        for (const EditionLayout &layout : qAsConst(m_layouts))
            printEdition(painter, layout);
        painter.end();
        m_file.close();
        return withNavigation(m_file.data(), bookmarks(), m_places);
    }

private:
    void print(QPainter &painter, const ManualText &text, const TextLook &look, qreal y) const
    {
        const auto leadsTo = [](const QString &link) { return LinkAim{link, QString()}; };
        const QRectF area = m_style.textArea();
        StyledText(text, look, m_style, area.width(), leadsTo).paint(painter, {area.left(), y});
    }

    void printTitlePage(QPainter &painter)
    {
        const qreal size = m_style.mm(34);
        QSvgRenderer(m_logo).render(&painter, QRectF(m_style.textArea().left(), m_style.mm(48), size, size));
        print(painter, words(QStringLiteral("Kelmar")), {44, true, PageStyle::accent(), 100}, m_style.mm(96));
        painter.fillRect(QRectF(m_style.textArea().left(), m_style.mm(117), m_style.mm(40), m_style.mm(1.2)),
                         PageStyle::accent());
        qreal y = m_style.mm(126);
        for (const EditionLayout &layout : qAsConst(m_layouts)) {
            const ManualEdition &edition = layout.edition;
            print(painter, words(edition.title), {18, true}, y);
            print(painter, words(edition.subtitle), {11, false, PageStyle::faint()}, y + m_style.mm(9.5));
            const QString where = QStringLiteral("%1 %2").arg(edition.page).arg(layout.firstPage);
            print(painter, words(where, QLatin1Char('#') + editionAnchor(edition)), {11},
                  y + m_style.mm(15.5));
            y += m_style.mm(31);
        }
        QStringList versions;
        for (const EditionLayout &layout : qAsConst(m_layouts))
            versions.append(layout.edition.version + QLatin1Char(' ') + m_version);
        versions.removeDuplicates();
        print(painter, words(versions.join(QStringLiteral(" / "))), {10, false, PageStyle::faint()},
              m_style.mm(262));
    }

    void printEdition(QPainter &painter, const EditionLayout &layout)
    {
        const double points = 72.0 / resolution;
        const QRectF area = m_style.textArea();
        for (int i = 0; i < layout.pages.size(); ++i) {
            m_writer.newPage();
            const ManualPage &page = layout.pages.at(i);
            const int number = layout.firstPage + i;
            printFrame(painter, layout.edition, page.chapter, number);
            for (const PlacedBox &placed : page.boxes) {
                placed.box->paint(painter, area.topLeft() + QPointF(0, placed.y));
                // A little above the heading, so that it does not stick to the window's edge.
                if (!placed.box->anchor.isEmpty())
                    m_places.insert(placed.box->anchor,
                                    {number - 1, (area.top() + placed.y - m_style.mm(4)) * points});
            }
        }
    }

    void printFrame(QPainter &painter, const ManualEdition &edition, const QString &chapter, int number) const
    {
        const QRectF area = m_style.textArea();
        const TextLook left{8.5, false, PageStyle::faint(), 100};
        TextLook right = left;
        right.alignment = Qt::AlignRight;
        print(painter, words(chapter), left, m_style.headerY());
        print(painter, words(edition.title), right, m_style.headerY());
        print(painter, words(edition.version + QLatin1Char(' ') + m_version), left, m_style.footerY());
        TextLook page = right;
        page.points = 10;
        page.strong = true;
        page.colour = PageStyle::ink();
        print(painter, words(QString::number(number)), page, m_style.footerY());
        painter.setPen(QPen(PageStyle::rule(), m_style.mm(0.2)));
        for (const qreal y : {m_style.headerY() + m_style.mm(5.5), m_style.footerY() - m_style.mm(2)})
            painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }

    QVector<PdfBookmark> bookmarks() const
    {
        QVector<PdfBookmark> all;
        for (const EditionLayout &layout : m_layouts) {
            all.append({layout.edition.title, 1, m_places.value(editionAnchor(layout.edition))});
            for (const ContentsEntry &entry : contentsOf(layout.edition))
                all.append({entry.title, entry.level + 1, m_places.value(entry.anchor)});
        }
        return all;
    }

    QBuffer m_file;
    QPdfWriter m_writer;
    PageStyle m_style;
    QString m_logo;
    QString m_version;
    QVector<EditionLayout> m_layouts;
    QMap<QString, PdfPlace> m_places;
};

} // namespace

QByteArray printManual(const QVector<ManualEdition> &editions, const QString &logo, const QString &version)
{
    return Printer(logo, version).print(editions);
}
