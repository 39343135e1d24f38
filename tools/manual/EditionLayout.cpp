#include "tools/manual/EditionLayout.h"

#include "tools/manual/BoxBuilder.h"
#include "tools/manual/ManualError.h"

namespace {

/// More passes than it takes until every number has found its page.
constexpr int mostPasses = 8;

QMap<QString, int> pagesOfAnchors(const QVector<ManualPage> &pages, int firstPage)
{
    QMap<QString, int> found;
    for (int i = 0; i < pages.size(); ++i) {
        for (const PlacedBox &placed : pages.at(i).boxes) {
            if (!placed.box->anchor.isEmpty())
                found.insert(placed.box->anchor, firstPage + i);
        }
    }
    return found;
}

} // namespace

EditionLayout layOutEdition(const ManualEdition &edition, const PageStyle &style, int firstPage)
{
    EditionLayout layout;
    layout.edition = edition;
    layout.firstPage = firstPage;
    QMap<QString, int> assumed;
    // A reference that becomes longer with its number may move what it leads to.
    for (int pass = 0; pass < mostPasses; ++pass) {
        BoxBuilder builder(edition, style, assumed);
        layout.pages = flowIntoPages(builder.build(), style.textArea().height());
        layout.pageOfAnchor = pagesOfAnchors(layout.pages, firstPage);
        if (layout.pageOfAnchor == assumed)
            return layout;
        assumed = layout.pageOfAnchor;
    }
    throw ManualError(QStringLiteral("the pages of \"%1\" find no order in which their numbers are right")
                          .arg(edition.language));
}
