#pragma once

#include "tools/manual/ManualEdition.h"
#include "tools/manual/PageBox.h"

#include <QMap>

/// Makes the boxes of an edition: contents, chapters. The page numbers are those of an earlier pass.
class BoxBuilder
{
public:
    BoxBuilder(const ManualEdition &edition, const PageStyle &style, const QMap<QString, int> &pageOfAnchor);

    PageBoxes build();

private:
    void addContents();
    void addChapter(const ManualChapter &chapter, int number);
    void addHeading(const ManualChapter &chapter, const ManualBlock &block);
    void addParagraph(const ManualBlock &block, const ManualBlock *next);
    void addItem(const ManualBlock &block, const ManualBlock *next);
    void addShaded(const ManualBlock &block);
    void addPicture(const ManualBlock &block);
    void addTable(const ManualBlock &block);

    StyledText styled(const ManualText &text, const TextLook &look, qreal width) const;
    QVector<qreal> columnWidths(const ManualBlock &table) const;
    QString titleOf(const ManualBlock &heading);
    LinkAim aimOf(const QString &link) const;
    int pageOf(const QString &anchor) const { return m_pageOfAnchor.value(anchor, 99); }

    const ManualEdition &m_edition;
    const PageStyle &m_style;
    const QMap<QString, int> &m_pageOfAnchor;
    PageBoxes m_boxes;
    QString m_file;
    int m_chapterNumber = 0;
    int m_sectionNumber = 0;
    int m_figureNumber = 0;
};
