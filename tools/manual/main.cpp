// Makes the users' manual from its source:
//   kelmar_manual_builder SOURCE LOGO VERSION TARGET LANGUAGE...
// SOURCE has a folder for each language; they come into the file in the order in which they are named. LOGO
// is the drawing on the title page.

#include "tools/manual/ManualPrinter.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>

#include <cstdio>

namespace {

int refuse(const QString &why)
{
    std::fprintf(stderr, "kelmar_manual_builder: %s\n", qPrintable(why));
    return 1;
}

int build(const QStringList &arguments)
{
    QVector<ManualEdition> editions;
    for (const QString &language : arguments.mid(5))
        editions.append(readManualEdition(arguments.at(1) + QLatin1Char('/') + language));
    const QByteArray pdf = printManual(editions, arguments.at(2), arguments.at(3));
    QFile target(arguments.at(4));
    if (!target.open(QIODevice::WriteOnly) || target.write(pdf) != pdf.size() || !target.flush())
        return refuse(target.fileName() + QStringLiteral(": ") + target.errorString());
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    // The pages are the same wherever they are made.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 6) {
        std::fputs("usage: kelmar_manual_builder SOURCE LOGO VERSION TARGET LANGUAGE...\n", stderr);
        return 2;
    }
    for (const QString &family : {QStringLiteral("Liberation Sans"), QStringLiteral("Liberation Mono")}) {
        if (!QFontDatabase().families().contains(family))
            return refuse(QStringLiteral("the font \"%1\" is not installed").arg(family));
    }
    try {
        return build(arguments);
    } catch (const std::exception &error) {
        return refuse(QString::fromUtf8(error.what()));
    }
}
