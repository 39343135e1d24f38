#include "app/shell/LanguageMenu.h"

#include "app/core/DocumentType.h"
#include "app/core/HideableMessage.h"
#include "app/core/Language.h"
#include "app/core/Messages.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QMenu>
#include <QSettings>

namespace LanguageMenu {

namespace {

/// The translation context of the menu.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(LanguageMenu)
};

const QString warningKey = QStringLiteral("/HideDeleteDefaultsWarning");

const char *const suffixesWithFavourites[] = {"kelchk", "kelir", "kelatr", "kelvc", "kelcrv", "kelid"};

QLocale storedLocale()
{
    QSettings settings;
    if (!settings.contains(QStringLiteral("locale")))
        settings.setValue(QStringLiteral("locale"), QStringLiteral("en"));
    return QLocale(settings.value(QStringLiteral("locale")).toString());
}

bool agreed(QWidget *parent)
{
    Message question;
    question.parent = parent;
    question.text = Text::tr("Changing the language deletes any Report Favourites.\n");
    question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
    return HideableMessage::show(question, warningKey) == QMessageBox::Ok;
}

void checkStoredLanguage(const QActionGroup *group)
{
    const QLocale stored = storedLocale();
    const QList<QAction *> actions = group->actions();
    for (QAction *action : actions) {
        if (action->data().toLocale() == stored)
            action->setChecked(true);
    }
}

} // namespace

QActionGroup *fill(QMenu *menu, QWidget *owner)
{
    auto *group = new QActionGroup(owner);
    const QLocale current = storedLocale();
    const QStringList files = offeredCatalogues();
    for (int i = 0; i < files.size(); ++i) {
        const QLocale locale = localeOfCatalogue(files.at(i));
        const bool english = locale.name().startsWith(QLatin1String("en"));
        const QString label = english ? QStringLiteral("English") : locale.nativeLanguageName();
        QAction *action = menu->addAction(QStringLiteral("&%1 %2").arg(QString::number(i + 1), label));
        action->setCheckable(true);
        action->setData(locale);
        group->addAction(action);
        action->setChecked(locale.language() == current.language());
    }
    return group;
}

bool change(QAction *action, QActionGroup *group, QWidget *parent)
{
    // Who has hidden the warning is not asked any more, and keeps the language.
    if (HideableMessage::isHidden(warningKey))
        return false;
    if (!agreed(parent)) {
        action->setChecked(false);
        checkStoredLanguage(group);
        return false;
    }
    QSettings().setValue(QStringLiteral("locale"), action->data().toLocale().name());
    for (const char *suffix : suffixesWithFavourites)
        QFile::remove(favouritePath(QLatin1String(suffix)));

    Message notice;
    notice.parent = parent;
    notice.icon = QMessageBox::Critical;
    notice.text = Text::tr("The application must be restarted when the language is changed.");
    showMessage(notice);
    return true;
}

} // namespace LanguageMenu
