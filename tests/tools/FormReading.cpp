#include "tests/tools/FormReading.h"

#include "report/file/ReportXml.h"

#include <QtTest>

#include <algorithm>

ReportFileEntries entriesOf(const QString &path)
{
    ReportFileEntries entries;
    if (!readReportFileEntries(path, entries))
        QTest::qFail(qPrintable(QStringLiteral("cannot read ") + path), __FILE__, __LINE__);
    return entries;
}

QDomDocument formOf(const QString &path)
{
    const ReportFileEntries entries = entriesOf(path);
    QDomDocument document;
    ReportXml::Error error;
    if (entries.isEmpty() || entries.first().name != QLatin1String("xml") ||
        !ReportXml::parse(entries.first().data, document, &error))
        QTest::qFail(qPrintable(path + QStringLiteral(": ") + error.message), __FILE__, __LINE__);
    return document;
}

QVector<QDomElement> elementsOf(const QDomNode &parent)
{
    QVector<QDomElement> all;
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        all.append(child);
        all += elementsOf(child);
    }
    return all;
}

QMap<QString, QString> attributesOf(const QDomElement &element)
{
    QMap<QString, QString> all;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        all.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    return all;
}

QString labelOf(const QDomElement &element)
{
    return element.firstChild().toText().data();
}

QStringList formLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("de")};
}

QString resource(const QString &language, const QString &file)
{
    return QStringLiteral(":res/reports_%1/%2").arg(language, file);
}

QDomDocument package(const QString &language, const QString &name)
{
    return formOf(resource(language, name + QStringLiteral(".pak")));
}

QDomElement pageOf(const QDomDocument &form)
{
    return form.documentElement().firstChildElement();
}

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}
