#include "app/core/Fonts.h"

#include <QFont>
#include <QFontDatabase>

void substituteMissingFonts()
{
    const QStringList installed = QFontDatabase().families();
    const QString standIn = QStringLiteral("Liberation Sans");
    for (const QString &family : {QStringLiteral("Arial"), QStringLiteral("Microsoft Sans Serif")}) {
        if (!installed.contains(family))
            QFont::insertSubstitution(family, standIn);
    }
}
