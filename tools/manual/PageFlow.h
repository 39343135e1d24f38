#pragma once

#include "tools/manual/PageBox.h"

#include <QVector>

/// A box at its place on a page.
struct PlacedBox
{
    std::shared_ptr<const PageBox> box;
    /// Below the upper edge of the area for text.
    qreal y = 0;
};

struct ManualPage
{
    QVector<PlacedBox> boxes;
    /// The chapter that its first box belongs to.
    QString chapter;

    /// Where its last box ends.
    qreal filled() const { return boxes.last().y + boxes.last().box->height; }
};

/// Distributes boxes over pages that are `height` high. What belongs to the next box stays on its page; a
/// picture that has no room goes to the top of the next page, and the text behind it, to the next heading,
/// takes its room. A chapter that would end in a few lines on a page of their own takes some of the page
/// before along.
QVector<ManualPage> flowIntoPages(const PageBoxes &boxes, qreal height);
