#pragma once

#include "report/items/ReportResizableItem.h"

#include <QByteArray>

/// A picture that the user adds to a page. It travels inside the report file, byte for byte.
class ReportResizableImage : public ReportResizableItem
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportResizableImageType
    };

    explicit ReportResizableImage(QGraphicsItem *parent = nullptr);

    int type() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    /// False if the element names no picture among the entries; such an item is to be deleted.
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;
    void setItemSize(const QSizeF &size, int handle) override;
    QRectF itemRect() const override;

    /// Lets the user choose a file for an image without a picture. False if there is none then.
    bool choosePicture();
    /// Takes a file as the picture. False if it cannot be read.
    bool loadPicture(const QString &path);
    /// Hides the image as a step of the undo history.
    void deleteImage();

    QString format() const { return m_format; }
    QByteArray data() const { return m_data; }
    QGraphicsItem *picture() const { return m_picture; }

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildPicture();

    QGraphicsItem *m_picture = nullptr;
    QString m_format;
    QByteArray m_data;
    double m_scale = 1.0;
};
