#include "tools/manual/BoxBuilder.h"

#include "tools/manual/ManualContents.h"
#include "tools/manual/ManualError.h"

#include <QImage>

#include <numeric>

namespace {

/// Pictures of windows are shown at this share of the size that they have on a screen of 96 dots per inch.
constexpr qreal pictureScale = 0.66;

ManualText words(const QString &text)
{
    ManualRun run;
    run.text = text;
    return {run};
}

ManualText linkTo(const QString &text, const QString &anchor)
{
    ManualText linked = words(text);
    linked.first().link = anchor;
    return linked;
}

bool leadsOn(const ManualBlock &block)
{
    return plainText(block.text).endsWith(QLatin1Char(':'));
}

/// The natural widths, or where they take more room than there is, what the narrow columns leave to the wide
/// ones, each in its share.
QVector<qreal> distributed(const QVector<qreal> &natural, const QVector<qreal> &minimal, qreal room)
{
    QVector<qreal> widths = natural;
    const qreal sum = std::accumulate(natural.cbegin(), natural.cend(), 0.0);
    if (sum <= room) {
        widths.last() += room - sum;
        return widths;
    }
    const qreal fairShare = room / natural.size();
    qreal left = room;
    qreal wide = 0;
    for (const qreal one : natural)
        one <= fairShare ? left -= one : wide += one;
    for (int i = 0; i < natural.size(); ++i) {
        if (natural.at(i) > fairShare)
            widths[i] = left * natural.at(i) / wide;
    }
    // What cannot be broken takes its room from the columns that have some to spare, the wide ones first.
    qreal missing = 0;
    for (int i = 0; i < widths.size(); ++i) {
        missing += qMax(0.0, minimal.at(i) - widths.at(i));
        widths[i] = qMax(minimal.at(i), widths.at(i));
    }
    for (const bool fromWide : {true, false}) {
        qreal spare = 0;
        for (int i = 0; i < widths.size(); ++i) {
            if ((natural.at(i) > fairShare) == fromWide)
                spare += widths.at(i) - minimal.at(i);
        }
        const qreal part = spare > 0 ? qMin(1.0, missing / spare) : 0;
        for (int i = 0; i < widths.size(); ++i) {
            if ((natural.at(i) > fairShare) == fromWide)
                widths[i] -= part * (widths.at(i) - minimal.at(i));
        }
        missing -= part * spare;
    }
    return widths;
}

} // namespace

BoxBuilder::BoxBuilder(const ManualEdition &edition, const PageStyle &style,
                       const QMap<QString, int> &pageOfAnchor)
    : m_edition(edition), m_style(style), m_pageOfAnchor(pageOfAnchor)
{
}

PageBoxes BoxBuilder::build()
{
    addContents();
    for (const ManualChapter &chapter : m_edition.chapters)
        addChapter(chapter, ++m_chapterNumber);
    return m_boxes;
}

StyledText BoxBuilder::styled(const ManualText &text, const TextLook &look, qreal width) const
{
    return StyledText(text, look, m_style, width, [this](const QString &link) { return aimOf(link); });
}

LinkAim BoxBuilder::aimOf(const QString &link) const
{
    if (link.contains(QLatin1String("://")))
        return {link, QString()};
    const QString anchor = anchorName(m_edition, resolvedLink(m_edition, m_file, link));
    return {QLatin1Char('#') + anchor,
            QStringLiteral(" (%1\u00a0%2)").arg(m_edition.page).arg(pageOf(anchor))};
}

void BoxBuilder::addContents()
{
    const qreal width = m_style.textArea().width();
    auto title =
        std::make_shared<TextBox>(styled(words(m_edition.title), {22, true, PageStyle::accent()}, width), 0);
    title->anchor = editionAnchor(m_edition);
    title->startsPage = true;
    title->chapter = m_edition.contents;
    auto heading = std::make_shared<TextBox>(styled(words(m_edition.contents), {14, true}, width), 0);
    heading->before = m_style.mm(5);
    m_boxes.push_back(title);
    m_boxes.push_back(heading);

    const auto leadsTo = [](const QString &link) { return LinkAim{QLatin1Char('#') + link, QString()}; };
    for (const ContentsEntry &entry : contentsOf(m_edition)) {
        const bool isChapter = entry.level == 1;
        const TextLook look{isChapter ? 9.0 : 8.2, isChapter, PageStyle::ink(), 97};
        const qreal indent = isChapter ? 0 : m_style.mm(6);
        const QString page = QString::number(pageOf(entry.anchor));
        const StyledText text(linkTo(entry.title, entry.anchor), look, m_style, width, leadsTo);
        const StyledText number(linkTo(page, entry.anchor), look, m_style, m_style.mm(12), leadsTo);
        auto line = std::make_shared<ContentsBox>(text, number, indent, m_style);
        line->before = m_style.mm(isChapter ? 1.1 : 0);
        line->keepWithNext = isChapter;
        m_boxes.push_back(line);
    }
    m_boxes.back()->keepWithNext = false;
}

void BoxBuilder::addChapter(const ManualChapter &chapter, int number)
{
    m_file = chapter.fileName;
    m_chapterNumber = number;
    m_sectionNumber = 0;
    for (int i = 0; i < chapter.blocks.size(); ++i) {
        const ManualBlock &block = chapter.blocks.at(i);
        const ManualBlock *next = i + 1 < chapter.blocks.size() ? &chapter.blocks.at(i + 1) : nullptr;
        switch (block.kind) {
        case ManualBlock::Heading:
            addHeading(chapter, block);
            break;
        case ManualBlock::Paragraph:
            addParagraph(block, next);
            break;
        case ManualBlock::Item:
            addItem(block, next);
            break;
        case ManualBlock::Note:
        case ManualBlock::Listing:
            addShaded(block);
            break;
        case ManualBlock::Picture:
            addPicture(block);
            break;
        case ManualBlock::Table:
            addTable(block);
            break;
        }
    }
}

QString BoxBuilder::titleOf(const ManualBlock &heading)
{
    const QString title = plainText(heading.text);
    if (heading.level == 1)
        return numberedTitle(QString::number(m_chapterNumber), title);
    if (heading.level == 2)
        return numberedTitle(QStringLiteral("%1.%2").arg(m_chapterNumber).arg(++m_sectionNumber), title);
    return title;
}

void BoxBuilder::addHeading(const ManualChapter &chapter, const ManualBlock &block)
{
    const TextLook looks[] = {{20, true, PageStyle::accent(), 110},
                              {13, true, PageStyle::accent(), 115},
                              {10.5, true, PageStyle::ink(), 115}};
    const qreal before[] = {0, 7, 4.5};
    const int level = qMin(block.level, 3) - 1;
    auto box =
        std::make_shared<TextBox>(styled(words(titleOf(block)), looks[level], m_style.textArea().width()), 0);
    const QString place = chapter.fileName + QLatin1Char('#') + headingSlug(plainText(block.text));
    box->anchor = anchorName(m_edition, place);
    box->before = m_style.mm(before[level]);
    box->keepWithNext = true;
    box->isHeading = true;
    if (block.level == 1) {
        box->startsPage = true;
        box->chapter = chapter.title();
        box->setUnderline(m_style);
    }
    m_boxes.push_back(box);
}

void BoxBuilder::addParagraph(const ManualBlock &block, const ManualBlock *next)
{
    auto box = std::make_shared<TextBox>(styled(block.text, TextLook(), m_style.textArea().width()), 0);
    box->before = m_style.mm(2.6);
    box->keepWithNext = next && leadsOn(block);
    m_boxes.push_back(box);
}

void BoxBuilder::addItem(const ManualBlock &block, const ManualBlock *next)
{
    const qreal step = m_style.mm(6.5);
    const qreal indent = step * block.level;
    auto box = std::make_shared<TextBox>(styled(block.text, TextLook(), m_style.textArea().width() - indent),
                                         indent);
    if (!block.marker.isEmpty())
        box->setMarker(styled(words(block.marker), TextLook(), step),
                       m_style.mm(block.marker.size() > 1 ? 6 : 4));
    box->before = m_style.mm(1.3);
    box->keepWithNext = next && leadsOn(block);
    m_boxes.push_back(box);
}

void BoxBuilder::addShaded(const ManualBlock &block)
{
    const bool isNote = block.kind == ManualBlock::Note;
    TextLook look;
    if (!isNote)
        look.points = 9;
    const qreal indent = m_style.mm(isNote ? 5 : 3);
    auto box = std::make_shared<TextBox>(
        styled(block.text, look, m_style.textArea().width() - indent - m_style.mm(3)), indent);
    box->setShade(m_style, isNote);
    box->before = m_style.mm(3.2);
    m_boxes.push_back(box);
}

void BoxBuilder::addPicture(const ManualBlock &block)
{
    const QImage image(block.file);
    if (image.isNull())
        throw ManualError(QStringLiteral("%1: %2 is no picture").arg(m_file, block.file));
    const qreal room = m_style.textArea().width() * block.percent / 100;
    // What the picture measures on paper at the resolution that it tells.
    const qreal natural = m_style.mm(1000.0 * image.width() / image.dotsPerMeterX()) * pictureScale;
    const qreal width = qMin(natural, room);
    const QSizeF size(width, width * image.height() / image.width());
    ManualText caption = words(QStringLiteral("%1 %2. ").arg(m_edition.figure).arg(++m_figureNumber));
    caption.first().strong = true;
    caption += block.text;
    auto box = std::make_shared<PictureBox>(
        image, size, styled(caption, {8.5, false, PageStyle::faint(), 120}, m_style.textArea().width()),
        m_style);
    box->before = m_style.mm(4);
    box->mayFloat = true;
    m_boxes.push_back(box);
}

QVector<qreal> BoxBuilder::columnWidths(const ManualBlock &table) const
{
    const qreal room = m_style.textArea().width();
    const qreal padding = 2 * RowBox::padding(m_style);
    QVector<qreal> natural(table.rows.first().size());
    QVector<qreal> minimal(natural.size());
    for (int row = 0; row < table.rows.size(); ++row) {
        for (int column = 0; column < natural.size(); ++column) {
            const StyledText cell = styled(table.rows.at(row).at(column), {9, row == 0}, room);
            natural[column] = qMax(natural.at(column), cell.naturalWidth() + padding);
            minimal[column] = qMax(minimal.at(column), cell.minimalWidth() + padding);
        }
    }
    return distributed(natural, minimal, room);
}

void BoxBuilder::addTable(const ManualBlock &block)
{
    const QVector<qreal> widths = columnWidths(block);
    QVector<qreal> lefts{0};
    for (int column = 1; column < widths.size(); ++column)
        lefts.append(lefts.last() + widths.at(column - 1));
    std::shared_ptr<RowBox> head;
    const int last = block.rows.size() - 1;
    for (int number = 0; number <= last; ++number) {
        const QVector<ManualText> &row = block.rows.at(number);
        QVector<StyledText> cells;
        for (int column = 0; column < widths.size(); ++column)
            cells.append(styled(row.at(column), {9, !head, PageStyle::ink(), 120},
                                widths.at(column) - 2 * RowBox::padding(m_style)));
        auto box = std::make_shared<RowBox>(cells, lefts, !head, m_style);
        // No page has just the head, or just one row of a longer table.
        box->keepWithNext = number < last && (number < 2 || number == last - 1);
        if (head) {
            box->repeated = head;
        } else {
            box->before = m_style.mm(3.2);
            head = box;
        }
        m_boxes.push_back(box);
    }
}
