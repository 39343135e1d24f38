#pragma once

#include <QColor>
#include <QFont>
#include <QPaintDevice>
#include <QRectF>

/// The measures of the manual's pages, in the units of the device they are painted on.
class PageStyle
{
public:
    explicit PageStyle(QPaintDevice *device) : m_device(device) {}

    QPaintDevice *device() const { return m_device; }
    qreal mm(qreal millimetres) const { return millimetres * m_device->logicalDpiX() / 25.4; }

    qreal pageWidth() const { return mm(210); }
    /// Where text stands, between the lines at the head and at the foot.
    QRectF textArea() const { return {mm(28), mm(27), mm(155), mm(243)}; }
    qreal headerY() const { return mm(15); }
    qreal footerY() const { return mm(279); }

    static QColor ink() { return QColor(0x22, 0x26, 0x2b); }
    static QColor faint() { return QColor(0x6b, 0x73, 0x7c); }
    static QColor rule() { return QColor(0xc3, 0xc9, 0xcf); }
    static QColor accent() { return QColor(0x1d, 0x4f, 0x7c); }
    static QColor shade() { return QColor(0xee, 0xf2, 0xf6); }

    static QFont font(qreal points, bool strong = false)
    {
        QFont font(QStringLiteral("Liberation Sans"));
        font.setPointSizeF(points);
        font.setBold(strong);
        return font;
    }

private:
    QPaintDevice *m_device;
};
