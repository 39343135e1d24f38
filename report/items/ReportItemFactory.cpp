#include "report/items/ReportItemFactory.h"

#include "report/file/ReportXml.h"
#include "report/items/ReportCheckBox.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportResizableImage.h"
#include "report/items/ReportSvg.h"
#include "report/items/ReportTable.h"

namespace {

template <typename Item> AbstractReportItem *make(QGraphicsItem *parent)
{
    return new Item(parent);
}

struct Maker
{
    const char *tag;
    AbstractReportItem *(*make)(QGraphicsItem *parent);
};

constexpr Maker makers[] = {
    {ReportXml::Tag::page, make<ReportPage>},         {ReportXml::Tag::text, make<ReportText>},
    {ReportXml::Tag::checkBox, make<ReportCheckBox>}, {ReportXml::Tag::svg, make<ReportSvg>},
    {ReportXml::Tag::table, make<ReportTable>},       {ReportXml::Tag::image, make<ReportResizableImage>},
};

} // namespace

AbstractReportItem *createReportItem(const QString &tag, QGraphicsItem *parent)
{
    for (const Maker &maker : makers) {
        if (tag == QLatin1String(maker.tag))
            return maker.make(parent);
    }
    return nullptr;
}
