#include "tools/resources/FormPackager.h"

#include "report/file/ReportFile.h"
#include "report/file/ReportXml.h"
#include "tools/resources/FormTables.h"
#include "tools/resources/OverlayForm.h"
#include "tools/resources/ResourceFolder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace {

using namespace ReportXml;

struct Language
{
    QString folder;
    FormLabels labels;
    bool isSource = false;
};

struct Form
{
    QString name;
    QDomDocument source;
    FormRevisions revisions;
};

void forEachElement(const QDomElement &parent, const std::function<void(QDomElement &)> &visit)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();) {
        // The visitor may take the element away.
        const QDomElement next = child.nextSiblingElement();
        visit(child);
        if (!child.parentNode().isNull())
            forEachElement(child, visit);
        child = next;
    }
}

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

void setIfGiven(QDomElement &element, const char *attribute, const QString &value)
{
    if (!value.isEmpty())
        element.setAttribute(QLatin1String(attribute), value);
}

/// Gives an element its label in another language.
void translate(QDomElement &element, const FormLabels &labels)
{
    const QDomText text = element.firstChild().toText();
    if (text.isNull() || !hasLetters(text.data()))
        return;
    const auto label = labels.constFind(text.data());
    if (label == labels.constEnd())
        throw BuildError(QStringLiteral("no translation of the label \"%1\"").arg(text.data()));
    QDomText(text).setData(label->text);
    if (element.tagName() != QLatin1String(Tag::cell)) {
        setIfGiven(element, Attribute::width, label->width);
        setIfGiven(element, Attribute::height, label->height);
    }
}

QDomDocument inLanguage(const Form &form, const Language &language)
{
    QDomDocument document = form.source.cloneNode(true).toDocument();
    forEachElement(document.documentElement(), [&language](QDomElement &element) {
        if (element.tagName() == QLatin1String(Tag::svg)) {
            const QString file = element.attribute(QLatin1String(Attribute::file));
            element.setAttribute(QLatin1String(Attribute::file),
                                 QStringLiteral(":res/%1/%2").arg(language.folder, file));
        } else if (!language.isSource) {
            translate(element, language.labels);
        }
    });
    return document;
}

QByteArray xmlOf(const QDomDocument &document)
{
    return document.toByteArray(2);
}

/// The template: no pictures, and the ids of its revision.
QByteArray templatePackage(const QDomDocument &form, const FormRevision &revision)
{
    QDomDocument document = form.cloneNode(true).toDocument();
    forEachElement(document.documentElement(), [&revision](QDomElement &element) {
        const auto id = revision.ids.constFind(element.attribute(QLatin1String(Attribute::id)));
        if (element.tagName() == QLatin1String(Tag::image))
            element.parentNode().removeChild(element);
        else if (id != revision.ids.constEnd() && id->isEmpty())
            element.removeAttribute(QLatin1String(Attribute::id));
        else if (id != revision.ids.constEnd())
            element.setAttribute(QLatin1String(Attribute::id), *id);
    });
    return packReportEntries({{QLatin1String(entryName), xmlOf(document)}});
}

/// The pristine report of the form's current revision, with its pictures behind it.
QByteArray pristineReport(const QDomDocument &form, const QString &package, const QString &artwork)
{
    QDomDocument document = overlayOf(form);
    document.documentElement().setAttribute(QLatin1String(Attribute::resPak), package);
    ReportFileEntries entries = {{QLatin1String(entryName), QByteArray()}};
    forEachElement(document.documentElement(), [&entries, &artwork](QDomElement &element) {
        if (element.tagName() != QLatin1String(Tag::image))
            return;
        const QString file = element.attribute(QLatin1String(Attribute::file));
        element.removeAttribute(QLatin1String(Attribute::file));
        element.setAttribute(QLatin1String(Attribute::index), entries.size());
        entries.append({QFileInfo(file).suffix(), readSource(artwork + QLatin1Char('/') + file)});
    });
    entries.first().data = xmlOf(document);
    return packReportEntries(entries);
}

void removeComments(QDomNode node)
{
    for (QDomNode child = node.firstChild(); !child.isNull();) {
        const QDomNode next = child.nextSibling();
        if (child.isComment() || child.isProcessingInstruction())
            node.removeChild(child);
        else
            removeComments(child);
        child = next;
    }
}

Form readForm(const QString &path, const FormRevisions &revisions)
{
    Form form;
    form.name = QFileInfo(path).completeBaseName();
    form.revisions = revisionsOfForm(revisions, form.name);
    Error error;
    if (!parse(readSource(path), form.source, &error))
        throw BuildError(
            QStringLiteral("%1:%2:%3: %4").arg(path).arg(error.line).arg(error.column).arg(error.message));
    removeComments(form.source);
    return form;
}

QVector<Language> readLanguages(const QDir &forms)
{
    const QString prefix = QStringLiteral("labels_");
    QVector<Language> languages = {{QStringLiteral("reports_en"), {}, true}};
    const QStringList tables = forms.entryList({prefix + QStringLiteral("*.tsv")}, QDir::Files, QDir::Name);
    for (const QString &table : tables) {
        const QString code = QFileInfo(table).completeBaseName().mid(prefix.size());
        languages.append({QStringLiteral("reports_") + code, readFormLabels(forms.filePath(table)), false});
    }
    return languages;
}

void packForm(const Form &form, const Language &language, const QString &artwork, ResourceFolder &target)
{
    const QDomDocument document = inLanguage(form, language);
    const QString folder = language.folder + QLatin1Char('/');
    for (const FormRevision &revision : form.revisions)
        target.store(folder + revision.package + QStringLiteral(".pak"), templatePackage(document, revision));
    const QString current =
        QStringLiteral(":res/") + folder + form.revisions.first().package + QStringLiteral(".pak");
    target.store(folder + QStringLiteral("default.") + form.name, pristineReport(document, current, artwork));
}

void copyArtwork(const QString &artwork, const Language &language, ResourceFolder &target)
{
    for (const QString &folder : {QStringLiteral("backgrounds/"), QStringLiteral("images/")}) {
        const QDir directory(artwork + QLatin1Char('/') + folder);
        const QStringList files = directory.entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
        for (const QString &file : files)
            target.store(language.folder + QLatin1Char('/') + folder + file,
                         readSource(directory.filePath(file)));
    }
}

/// New documents of the kinds that are no forms: the same in every language.
void copyPristineDocuments(const QDir &forms, const Language &language, ResourceFolder &target)
{
    const QStringList files = forms.entryList({QStringLiteral("default.*")}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        target.store(language.folder + QLatin1Char('/') + file, readSource(forms.filePath(file)));
}

} // namespace

void packForms(const QString &forms, const QString &artwork, ResourceFolder &target)
{
    const QDir directory(forms);
    const FormRevisions revisions = readFormRevisions(directory.filePath(QStringLiteral("revisions.tsv")));
    const QVector<Language> languages = readLanguages(directory);
    const QStringList files = directory.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const Form form = readForm(directory.filePath(file), revisions);
        for (const Language &language : languages)
            packForm(form, language, artwork, target);
    }
    for (const Language &language : languages) {
        copyArtwork(artwork, language, target);
        copyPristineDocuments(directory, language, target);
    }
}
