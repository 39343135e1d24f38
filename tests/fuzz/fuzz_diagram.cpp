// Bytes of a diagram file to a scene, and the scene to bytes again.

#include "diagram/DiagramGraphicsScene.h"

#include <QApplication>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

/// The elements below the root in a form that can be compared, in any order: saving turns it round.
QStringList elements(const QByteArray &xml)
{
    QDomDocument document;
    require(GatedXml::parse(xml, document));
    QStringList all;
    const QDomElement root = document.documentElement();
    for (QDomElement element = root.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        QString text;
        QTextStream stream(&text);
        element.save(stream, 0);
        all.append(text);
    }
    all.sort();
    return all;
}

} // namespace

/// The fonts that captions are laid out with are kept to the end of the process.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Not taken down at the end: the platform then loses sight of its screen, which counts as a leak.
    static auto *application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray xml(reinterpret_cast<const char *>(data), int(size));
    DiagramGraphicsScene scene;
    GatedXml::Error error;
    if (!scene.readXml(xml, &error)) {
        require(!error.message.isEmpty());
        require(scene.items().isEmpty());
        return 0;
    }
    const QRectF bounds = scene.itemsBoundingRect();
    require(std::abs(bounds.width()) < 1e8 && std::abs(bounds.height()) < 1e8);
    const QByteArray written = scene.toXml();
    DiagramGraphicsScene again;
    require(again.readXml(written, &error));
    // What goes out and comes in again stays what it is.
    require(elements(again.toXml()) == elements(written));
    return 0;
}
