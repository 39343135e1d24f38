#include "app/core/Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QTranslator>

#include <memory>

namespace {

NewDocumentNames germanNames()
{
    return {
        QStringLiteral("Prüfbericht Besichtigung.kelir"), QStringLiteral("Prüfbericht PV-Generator.kelatr"),
        QStringLiteral("Prüfbescheinigung.kelvc"),        QStringLiteral("Anlagenschema.kelid"),
        QStringLiteral("Übergabe-Checkliste.kelchk"),     QStringLiteral("Kennliniendaten.kelcrv")};
}

NewDocumentNames englishNames()
{
    return {QStringLiteral("Inspection Report.kelir"),
            QStringLiteral("Array Test Report.kelatr"),
            QStringLiteral("Verification Certificate.kelvc"),
            QStringLiteral("Installation Diagram.kelid"),
            QStringLiteral("Checklist.kelchk"),
            QStringLiteral("Curve Data.kelcrv")};
}

/// The process-wide state of the session's language. The translators are replaced, never added to.
struct Session
{
    QString reportsFolder = QStringLiteral("reports_de");
    NewDocumentNames names = germanNames();
    std::unique_ptr<QTranslator> application;
    std::unique_ptr<QTranslator> toolkit;
    bool restartRequested = false;
};

Session &session()
{
    static Session instance;
    return instance;
}

/// Puts a newly loaded translator into a slot. It is installed whether or not it could be loaded: an
/// empty catalogue leaves the source texts standing.
void install(std::unique_ptr<QTranslator> &slot, const QString &fileName, const QString &folder)
{
    slot = std::make_unique<QTranslator>();
    slot->load(fileName, folder);
    QCoreApplication::installTranslator(slot.get());
}

/// Takes a translator out of the application and deletes it.
void discard(std::unique_ptr<QTranslator> &slot)
{
    if (slot)
        QCoreApplication::removeTranslator(slot.get());
    slot.reset();
}

QString catalogueFolder()
{
    return QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/Translations")).absolutePath();
}

QStringList catalogues(const QDir &folder)
{
    return folder.entryList({QStringLiteral("kelmar_*.qm")}, QDir::NoFilter, QDir::NoSort);
}

} // namespace

const QString &reportsFolder()
{
    return session().reportsFolder;
}

const NewDocumentNames &newDocumentNames()
{
    return session().names;
}

QString reportsResource(const QString &fileName)
{
    return QStringLiteral(":res/") + reportsFolder() + QLatin1Char('/') + fileName;
}

void useLanguage(const QString &code, const QLocale &locale)
{
    Session &current = session();
    current.reportsFolder = QStringLiteral("reports_") + code;
    current.names = code == QLatin1String("de") ? germanNames() : englishNames();
    discard(current.application);
    discard(current.toolkit);
    install(current.application, QStringLiteral("kelmar_") + code, catalogueFolder());
    install(current.toolkit, QStringLiteral("qt_") + code, catalogueFolder());
    QLocale::setDefault(locale);
}

void loadTranslations()
{
    QSettings settings;
    if (!settings.contains(QStringLiteral("locale")))
        settings.setValue(QStringLiteral("locale"), QStringLiteral("en"));
    const QLocale chosen(settings.value(QStringLiteral("locale")).toString());

    const QStringList files = catalogues(QDir(catalogueFolder()));
    for (const QString &file : files) {
        const QLocale offered = localeOfCatalogue(file);
        if (offered.language() == chosen.language())
            useLanguage(offered.name().left(2), chosen);
    }
}

QLocale localeOfCatalogue(const QString &fileName)
{
    QString code = fileName.mid(fileName.indexOf(QLatin1Char('_')) + 1);
    code.chop(3);
    return QLocale(code);
}

QStringList offeredCatalogues()
{
    // Relative to the working directory, while loadTranslations() looks beside the executable: the
    // program is always started in the executable's folder.
    return catalogues(QDir(QStringLiteral("Translations")));
}

bool restartRequested()
{
    return session().restartRequested;
}

void setRestartRequested(bool requested)
{
    session().restartRequested = requested;
}
