#include "report/items/ReportResizableImage.h"

#include "app/core/Shell.h"
#include "app/core/XmlNumber.h"
#include "report/file/ReportXml.h"
#include "report/items/AddDeleteCommand.h"
#include "report/items/BoundedPicture.h"
#include "report/items/DrawingCost.h"
#include "report/items/ReportItemHost.h"
#include "report/items/ResizeGeometry.h"
#include "report/items/SafeSvg.h"

#include <QDomElement>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSvgItem>
#include <QKeyEvent>
#include <QMenu>
#include <QSvgRenderer>

namespace Attribute = ReportXml::Attribute;

namespace {

/// A report with a larger file in it could not be read back.
constexpr qint64 maxFileSize = 128LL * 1024 * 1024;
/// An image cannot be made smaller than can be grasped.
constexpr double minSize = 1.0;

/// No drawing needs to be larger.
constexpr QSize wholePage(793, 1123);

/// A drawing that owns its renderer.
QGraphicsItem *drawingItem(const QByteArray &svg, QGraphicsItem *parent)
{
    auto *item = new QGraphicsSvgItem(parent);
    auto *renderer = new QSvgRenderer(item);
    if (const QByteArray safe = safeSvg(svg);
        !safe.isEmpty() && renderer->load(safe) && !isDrawnQuickly(*renderer, wholePage))
        renderer->load(QByteArray());
    item->setSharedRenderer(renderer);
    item->setCacheMode(QGraphicsItem::NoCache);
    return item;
}

QGraphicsItem *bitmapItem(const QByteArray &data, QGraphicsItem *parent)
{
    QImage image = decodeBoundedPicture(data);
    if (image.isNull())
        image = decodeBoundedDrawing(safeSvg(data));
    return new QGraphicsPixmapItem(QPixmap::fromImage(image), parent);
}

} // namespace

ReportResizableImage::ReportResizableImage(QGraphicsItem *parent) : ReportResizableItem(parent, true) {}

int ReportResizableImage::type() const
{
    return Type;
}

const QString &ReportResizableImage::elementName() const
{
    static const QString name = QLatin1String(ReportXml::Tag::image);
    return name;
}

bool ReportResizableImage::writeXml(QDomElement &element, bool, ReportFileEntries &entries)
{
    if (!m_picture)
        return false;
    element.setAttribute(Attribute::index, entries.size());
    setDoubleAttribute(element, Attribute::scale, m_picture->scale());
    if (!ReportResizableItem::writeXml(element, false, entries))
        return false;
    entries.append({m_format, m_data});
    return true;
}

bool ReportResizableImage::readXml(const QDomElement &element, bool, const ReportFileEntries &entries)
{
    m_scale = doubleAttribute(element, Attribute::scale, 1.0);
    // The first entry is the report itself.
    const int index = intAttribute(element, Attribute::index, -1);
    if (index < 1 || index >= entries.size())
        return false;
    m_format = entries.at(index).name;
    m_data = entries.at(index).data;
    buildPicture();
    if (!ReportResizableItem::readXml(element, false, entries))
        return false;
    refreshFrame();
    return true;
}

void ReportResizableImage::setItemSize(const QSizeF &size, int handle)
{
    if (!m_picture || size.width() < minSize || size.height() < minSize)
        return;
    const QSizeF own = m_picture->boundingRect().size();
    if (own.isEmpty())
        return;
    m_picture->setScale(handle & ResizeGeometry::Middle ? size.width() / own.width()
                                                        : size.height() / own.height());
}

QRectF ReportResizableImage::itemRect() const
{
    if (!m_picture)
        return {};
    const QRectF own = m_picture->boundingRect();
    return {own.topLeft(), own.size() * m_picture->scale()};
}

bool ReportResizableImage::choosePicture()
{
    if (m_picture)
        return false;
    const QString path =
        QFileDialog::getOpenFileName(Shell::parentWindow(), tr("Select Image"), QString(),
                                     tr("Images (*.png *.jpg *.jpeg *.bmp *.tif *.tiff *.svg)"));
    return !path.isEmpty() && loadPicture(path);
}

bool ReportResizableImage::loadPicture(const QString &path)
{
    QFile file(path);
    if (file.size() > maxFileSize || !file.open(QIODevice::ReadOnly))
        return false;
    m_format = QFileInfo(path).suffix();
    m_data = file.readAll();
    buildPicture();
    refreshFrame();
    return true;
}

void ReportResizableImage::deleteImage()
{
    if (ReportItemHost *scene = host())
        scene->adopt(this);
    offerCommand(new AddDeleteCommand(this, false));
}

void ReportResizableImage::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    QMenu menu;
    menu.addAction(tr("Delete Image"), this, &ReportResizableImage::deleteImage);
    menu.exec(event->screenPos());
    event->accept();
}

void ReportResizableImage::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Delete) {
        ReportResizableItem::keyPressEvent(event);
        return;
    }
    deleteImage();
    event->accept();
}

void ReportResizableImage::buildPicture()
{
    delete m_picture;
    m_picture = m_format == QLatin1String("svg") ? drawingItem(m_data, this) : bitmapItem(m_data, this);
    m_picture->setScale(m_scale);
}
