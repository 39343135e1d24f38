// Bytes of a drawing from a report to what is drawn of it.

#include "report/items/SafeSvg.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

/// No declarations, no instructions, and no picture that is not in the drawing itself.
void requireHarmless(const QByteArray &svg)
{
    QXmlStreamReader reader(svg);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        require(token != QXmlStreamReader::DTD && token != QXmlStreamReader::ProcessingInstruction &&
                token != QXmlStreamReader::EntityReference);
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        require(depth <= 256);
        if (reader.isStartElement() && reader.qualifiedName() == QLatin1String("image"))
            require(reader.attributes()
                        .value(QLatin1String("xlink:href"))
                        .trimmed()
                        .startsWith(QLatin1String("data:")));
    }
    require(!reader.hasError());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray safe = safeSvg(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    if (!safe.isEmpty())
        requireHarmless(safe);
    return 0;
}
