#pragma once

#include <QPointF>
#include <QString>

class DiagramComponent;
class DiagramGraphicsItem;

/// The item for a tag in a file, yet to be read, or null for a tag that is none of an item's.
DiagramGraphicsItem *createDiagramItem(const QString &tag);

/// A new component of a kind, given by its type number.
DiagramComponent *createComponent(int type, const QString &id, const QString &caption,
                                  const QPointF &position);
