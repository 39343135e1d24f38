#include "import/ImportStatusMessage.h"

#include "app/core/Identity.h"
#include "app/core/Shell.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// The translation context of these messages.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(ResultsImporter)
};

QString invalidRowText(const QModelIndexList &indexes)
{
    QStringList rows;
    for (const QModelIndex &index : indexes)
        rows << index.data().toString();
    return Text::tr("Programming error: Invalid row: %1", "Error Message")
        .arg(rows.join(QStringLiteral(", ")));
}

QString olderVersionText()
{
    // The tabs and blanks stand in the catalogues, too: the text must not change by a character.
    return Text::
        tr("You are attempting to insert data into an older version of the Array Test Report document. "
           "\t\t\t\t\t\t\t\t   Please create a new Array Test Report if you would like to import data into "
           "it. \t\t\t\t\t\t\t\t   You may need to restore the Array Test Document in the favourites "
           "settings if the favourite \t\t\t\t\t\t\t\t   was created using an earlier version of %1.",
           "Troubleshoot advice")
            .arg(Identity::applicationName());
}

QString nowhereToInsertText(const QString &documentPath)
{
    const bool isTestReport = QFileInfo(documentPath).suffix().toLower() == QLatin1String("kelatr");
    return isTestReport
               ? olderVersionText()
               : Text::tr("Unable to find where to insert data. Please ensure an Array Test Report has "
                          "focus before inserting the data.",
                          "Troubleshoot advice");
}

QString noRoomText()
{
    return Text::tr("No more room left in the report table. Please use another Array Test Report.",
                    "Troubleshoot advice");
}

} // namespace

Message importStatusMessage(int status, const QString &documentPath, const QModelIndexList &indexes)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = status == InvalidRow ? QMessageBox::Critical : QMessageBox::Warning;
    switch (status) {
    case InvalidRow:
        message.text = invalidRowText(indexes);
        break;
    case NowhereToInsert:
        message.text = nowhereToInsertText(documentPath);
        break;
    case NoRoom:
        message.text = noRoomText();
        break;
    default:
        break;
    }
    return message;
}
