#include "app/dialogs/DialogAbout.h"

#include "app/core/Identity.h"
#include "ui_DialogAbout.h"

#include <QCoreApplication>

DialogAbout::DialogAbout(QWidget *parent) : QDialog(parent)
{
    Ui::DialogAbout form;
    form.setupUi(this);
    form.version->setText(QCoreApplication::applicationVersion());
    setStyleSheet(QStringLiteral("QDialog { background-image: url(:res/images/%1_splash.png); }")
                      .arg(Identity::organisationName()));
    setWindowTitle(tr("About %1").arg(Identity::applicationName()));
    form.version->setStyleSheet(QStringLiteral("color: rgb(255, 255, 255);"));
    form.version->setFont(QFont(QStringLiteral("Arial"), 10, 75));
}
