// Makes the documents of the sample job by the program's own code:
//   kelmar-sample-documents report|diagram|curves DOCUMENT TABLE en|de
// TABLE has what goes into the document, in both languages.

#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "app/core/Language.h"
#include "app/core/Messages.h"
#include "app/platform/Platform.h"
#include "res/Resources.h"
#include "tools/samplejob/CurveSorting.h"
#include "tools/samplejob/DiagramDrawing.h"
#include "tools/samplejob/ReportFilling.h"
#include "tools/samplejob/SampleError.h"

#include <QApplication>
#include <QMap>

#include <cstdio>

int main(int argc, char **argv)
{
    // XML attributes are written in hash order: the same contents are to give the same bytes.
    qSetGlobalQHashSeed(0);
    Platform::doWithoutDisplay();
    QApplication application(argc, argv);
    initResources();
    Identity::applyToApplication();
    substituteMissingFonts();
    const QMap<QString, void (*)(const QString &, const QString &, bool)> makers{
        {QStringLiteral("report"), fillReport},
        {QStringLiteral("diagram"), drawDiagram},
        {QStringLiteral("curves"), sortCurves}};
    const QStringList arguments = QCoreApplication::arguments();
    const auto maker = makers.value(arguments.value(1));
    const bool german = arguments.value(4) == QLatin1String("de");
    if (!maker || arguments.size() != 5 || (!german && arguments.at(4) != QLatin1String("en"))) {
        std::fputs("usage: kelmar-sample-documents report|diagram|curves DOCUMENT TABLE en|de\n", stderr);
        return 2;
    }
    useLanguage(arguments.at(4),
                german ? QLocale(QStringLiteral("de_DE")) : QLocale(QStringLiteral("en_GB")));
    bool told = false;
    setMessageSink([&told](const Message &message) {
        told = true;
        std::fprintf(stderr, "kelmar-sample-documents: %s\n", qPrintable(message.text));
        return MessageAnswer{QMessageBox::No, false};
    });
    try {
        maker(arguments.at(2), arguments.at(3), german);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kelmar-sample-documents: %s\n", error.what());
        return 1;
    }
    return told ? 1 : 0;
}
