#include "tools/manual/ManualChapter.h"

#include "tools/manual/ManualError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

namespace {

QString absolutePath(const QDir &folder, const QString &name)
{
    return QDir::cleanPath(folder.absoluteFilePath(name));
}

/// Takes over what the toolkit has read of one chapter, with all formats left behind but their meaning.
class ChapterReader
{
public:
    explicit ChapterReader(const QString &path) : m_folder(QFileInfo(path).dir())
    {
        m_chapter.fileName = QFileInfo(path).fileName();
    }

    ManualChapter read(const QTextDocument &document)
    {
        const QTextFrame *root = document.rootFrame();
        for (auto place = root->begin(); !place.atEnd(); ++place) {
            if (const auto *table = qobject_cast<QTextTable *>(place.currentFrame()))
                m_chapter.blocks.append(readTable(*table));
            else if (place.currentBlock().isValid())
                readBlock(place.currentBlock());
        }
        if (m_chapter.blocks.isEmpty() || m_chapter.blocks.first().level != 1)
            fail(QStringLiteral("it does not begin with a heading of level 1"));
        return m_chapter;
    }

private:
    [[noreturn]] void fail(const QString &why) const
    {
        throw ManualError(QStringLiteral("%1: %2").arg(m_chapter.fileName, why));
    }

    ManualRun readRun(const QTextFragment &fragment) const
    {
        const QTextCharFormat format = fragment.charFormat();
        ManualRun run;
        run.text = fragment.text();
        run.strong = format.fontWeight() > QFont::Normal;
        run.emphasis = format.fontItalic();
        // Only what stands between backticks comes with a font of its own.
        run.literal = format.hasProperty(QTextFormat::FontFamily);
        run.link = format.anchorHref();
        if (format.isImageFormat()) {
            run.text = format.property(QTextFormat::ImageAltText).toString();
            run.icon = absolutePath(m_folder, format.toImageFormat().name());
        }
        return run;
    }

    ManualText readText(const QTextBlock &block) const
    {
        ManualText text;
        for (auto place = block.begin(); !place.atEnd(); ++place)
            text.append(readRun(place.fragment()));
        return text;
    }

    QVector<ManualText> readRow(const QTextTable &table, int row) const
    {
        QVector<ManualText> cells;
        for (int column = 0; column < table.columns(); ++column)
            cells.append(readText(table.cellAt(row, column).firstCursorPosition().block()));
        return cells;
    }

    ManualBlock readTable(const QTextTable &table) const
    {
        ManualBlock block;
        block.kind = ManualBlock::Table;
        for (int row = 0; row < table.rows(); ++row)
            block.rows.append(readRow(table, row));
        return block;
    }

    ManualBlock readPicture(const QTextBlock &source) const
    {
        const QTextImageFormat format = source.begin().fragment().charFormat().toImageFormat();
        ManualBlock block;
        block.kind = ManualBlock::Picture;
        block.file = absolutePath(m_folder, format.name());
        ManualRun caption;
        caption.text = format.property(QTextFormat::ImageAltText).toString();
        block.text.append(caption);
        QString width = format.property(QTextFormat::ImageTitle).toString();
        if (!width.isEmpty())
            block.percent = width.remove(QLatin1Char('%')).toInt();
        if (caption.text.isEmpty() || block.percent < 1 || block.percent > 100)
            fail(QStringLiteral("a picture needs a caption and, if any, a width of 1 to 100 %"));
        return block;
    }

    static bool isPicture(const QTextBlock &block)
    {
        auto place = block.begin();
        if (place.atEnd() || !place.fragment().charFormat().isImageFormat())
            return false;
        ++place;
        return place.atEnd();
    }

    void readListing(const QTextBlock &source)
    {
        // Each line comes as a block of its own, with an empty one before and behind.
        if (source.text().isEmpty())
            return;
        const bool goesOn = !m_chapter.blocks.isEmpty() &&
                            m_chapter.blocks.last().kind == ManualBlock::Listing &&
                            source.previous().blockFormat().hasProperty(QTextFormat::BlockCodeLanguage);
        ManualRun line;
        line.text = source.text();
        line.literal = true;
        if (goesOn) {
            line.text.prepend(QChar::LineSeparator);
            m_chapter.blocks.last().text.append(line);
            return;
        }
        ManualBlock block;
        block.kind = ManualBlock::Listing;
        block.text.append(line);
        m_chapter.blocks.append(block);
    }

    void readBlock(const QTextBlock &source)
    {
        const QTextBlockFormat format = source.blockFormat();
        if (format.hasProperty(QTextFormat::BlockCodeLanguage)) {
            readListing(source);
            return;
        }
        if (source.begin().atEnd())
            return;
        if (isPicture(source)) {
            m_chapter.blocks.append(readPicture(source));
            return;
        }
        ManualBlock block;
        block.text = readText(source);
        if (format.headingLevel() > 0) {
            block.kind = ManualBlock::Heading;
            block.level = format.headingLevel();
            // The heading's own weight says nothing.
            for (ManualRun &run : block.text)
                run.strong = false;
        } else if (const QTextList *list = source.textList()) {
            block.kind = ManualBlock::Item;
            block.level = list->format().indent();
            block.marker = list->format().style() == QTextListFormat::ListDecimal ? list->itemText(source)
                                                                                  : QString(QChar(0x2022));
        } else if (format.hasProperty(QTextFormat::BlockQuoteLevel)) {
            block.kind = ManualBlock::Note;
        } else if (format.indent() > 0) {
            // Goes on with the item before it.
            block.kind = ManualBlock::Item;
            block.level = format.indent();
        }
        m_chapter.blocks.append(block);
    }

    QDir m_folder;
    ManualChapter m_chapter;
};

} // namespace

QString ManualChapter::title() const
{
    return plainText(blocks.first().text);
}

QStringList ManualChapter::headings(int deepestLevel) const
{
    QStringList found;
    for (const ManualBlock &block : blocks) {
        if (block.kind == ManualBlock::Heading && block.level <= deepestLevel)
            found.append(plainText(block.text));
    }
    return found;
}

ManualChapter readManualChapter(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ManualError(QStringLiteral("%1 cannot be read").arg(path));
    QTextDocument document;
    document.setMarkdown(QString::fromUtf8(file.readAll()), QTextDocument::MarkdownDialectGitHub);
    return ChapterReader(path).read(document);
}
