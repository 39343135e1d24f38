#pragma once

#include "report/file/ReportFile.h"

#include <QDomDocument>
#include <QMap>
#include <QStringList>
#include <QVector>

/// The languages that there are forms in.
QStringList formLanguages();

/// Path of a file of a language's reports folder.
QString resource(const QString &language, const QString &file);

/// The XML of a package or report in the resources; fails the test when there is none.
QDomDocument formOf(const QString &path);

/// All entries of a package or report in the resources; fails the test when there are none.
ReportFileEntries entriesOf(const QString &path);

/// The XML of a template package of a language.
QDomDocument package(const QString &language, const QString &name);

/// The first page of a form that is kept elsewhere.
QDomElement pageOf(const QDomDocument &form);

/// All elements below another in document order.
QVector<QDomElement> elementsOf(const QDomNode &parent);

QMap<QString, QString> attributesOf(const QDomElement &element);

/// The text of an element itself, without that of its children.
QString labelOf(const QDomElement &element);

/// Whether a text is one to translate.
bool hasLetters(const QString &text);
