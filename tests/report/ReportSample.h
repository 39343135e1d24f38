#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QPair>
#include <QString>
#include <QVector>

/// Report containers made and read by hand, so that the product's own code is held to the format and not
/// to itself.
namespace ReportSample {

using Entries = QVector<QPair<QString, QByteArray>>;

/// A container of these entries.
QByteArray pack(const Entries &entries);
/// A container with this XML and these images.
QByteArray pack(const QByteArray &xml, const Entries &images = {});
/// The entries of a file. Fails the test when it is no container to the last byte.
Entries read(const QString &path);
/// The XML of a file. Fails the test when it is not well-formed.
QDomDocument readXml(const QString &path);
/// All elements with a tag, in document order.
QVector<QDomElement> elements(const QDomDocument &document, const QString &tag);
/// The first element with an id; null when there is none.
QDomElement elementById(const QDomDocument &document, const QString &id);

/// A picture of one colour as the bytes of a PNG file.
QByteArray png(int width, int height);

} // namespace ReportSample
