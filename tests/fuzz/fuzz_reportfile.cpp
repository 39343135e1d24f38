// Bytes to entries to a tree, the way a report file takes when it is opened. Input that opens with the
// letter 's' is the entry stream of a container, packed here: plain bytes that the fuzzer can see into. Any
// other input is the container itself.

#include "report/file/ReportFile.h"
#include "report/file/ReportXml.h"

#include <QtGlobal>

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        abort();
}

void requireSameEntries(const ReportFileEntries &left, const ReportFileEntries &right)
{
    require(left.size() == right.size());
    for (int i = 0; i < left.size(); ++i) {
        require(left.at(i).name == right.at(i).name && left.at(i).name.isNull() == right.at(i).name.isNull());
        require(left.at(i).data == right.at(i).data && left.at(i).data.isNull() == right.at(i).data.isNull());
    }
}

int depthOf(const QDomNode &node)
{
    int deepest = 0;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        deepest = qMax(deepest, depthOf(child));
    return deepest + 1;
}

void parseAndCheck(const QByteArray &xml)
{
    QDomDocument document;
    ReportXml::Error error;
    if (!ReportXml::parse(xml, document, &error)) {
        require(!error.message.isEmpty());
        return;
    }
    require(error.message.isEmpty());
    require(!document.documentElement().isNull());
    require(document.doctype().isNull() || document.doctype().name().isEmpty());
    // The document itself, 256 elements and what the innermost of them holds.
    require(depthOf(document) <= 258);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    QByteArray container(reinterpret_cast<const char *>(data), int(size));
    if (container.startsWith('s'))
        container = qCompress(container.mid(1));

    const ReportFileEntries entries = unpackReportEntries(container);
    requireSameEntries(unpackReportEntries(packReportEntries(entries)), entries);
    for (const ReportFileEntry &entry : entries)
        parseAndCheck(entry.data);
    return 0;
}
