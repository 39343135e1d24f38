#include "app/core/GatedXml.h"

#include <QCoreApplication>
#include <QXmlDefaultHandler>
#include <QXmlSimpleReader>

namespace {

/// No document of ours nests deeper than a handful of levels; taking a tree of tens of thousands down
/// exhausts the stack.
constexpr int maximalDepth = 256;

QString refusal(const char *text)
{
    return QCoreApplication::translate("GatedXml", text);
}

/// Stands between the parser and the builder of the tree and stops the parser at what no document of ours
/// has.
class Gate final : public QXmlContentHandler, public QXmlLexicalHandler
{
public:
    Gate(QXmlContentHandler *content, QXmlLexicalHandler *lexical, int maximalNodes)
        : m_content(content), m_lexical(lexical), m_maximalNodes(maximalNodes)
    {
    }

    bool startElement(const QString &uri, const QString &localName, const QString &name,
                      const QXmlAttributes &attributes) override
    {
        if (++m_depth > maximalDepth)
            return refuse(QT_TRANSLATE_NOOP("GatedXml", "elements are nested too deeply"));
        return countNodes(1 + attributes.count()) &&
               m_content->startElement(uri, localName, name, attributes);
    }

    bool endElement(const QString &uri, const QString &localName, const QString &name) override
    {
        --m_depth;
        return m_content->endElement(uri, localName, name);
    }

    bool startDTD(const QString &, const QString &, const QString &) override
    {
        return refuse(QT_TRANSLATE_NOOP("GatedXml", "document type declarations are not allowed"));
    }

    bool characters(const QString &text) override { return countNodes(1) && m_content->characters(text); }
    bool comment(const QString &text) override { return countNodes(1) && m_lexical->comment(text); }
    bool processingInstruction(const QString &target, const QString &text) override
    {
        return countNodes(1) && m_content->processingInstruction(target, text);
    }

    void setDocumentLocator(QXmlLocator *locator) override { m_content->setDocumentLocator(locator); }
    bool startDocument() override { return m_content->startDocument(); }
    bool endDocument() override { return m_content->endDocument(); }
    bool startPrefixMapping(const QString &prefix, const QString &uri) override
    {
        return m_content->startPrefixMapping(prefix, uri);
    }
    bool endPrefixMapping(const QString &prefix) override { return m_content->endPrefixMapping(prefix); }
    bool ignorableWhitespace(const QString &text) override { return m_content->ignorableWhitespace(text); }
    bool skippedEntity(const QString &name) override { return m_content->skippedEntity(name); }
    bool endDTD() override { return m_lexical->endDTD(); }
    bool startEntity(const QString &name) override { return m_lexical->startEntity(name); }
    bool endEntity(const QString &name) override { return m_lexical->endEntity(name); }
    bool startCDATA() override { return m_lexical->startCDATA(); }
    bool endCDATA() override { return m_lexical->endCDATA(); }
    QString errorString() const override
    {
        return m_refusal.isEmpty() ? m_content->errorString() : m_refusal;
    }

private:
    bool refuse(const char *text)
    {
        m_refusal = refusal(text);
        return false;
    }

    bool countNodes(int count)
    {
        m_nodes += count;
        return m_nodes <= m_maximalNodes || refuse(QT_TRANSLATE_NOOP("GatedXml", "too many elements"));
    }

    QXmlContentHandler *m_content;
    QXmlLexicalHandler *m_lexical;
    QString m_refusal;
    int m_maximalNodes;
    int m_depth = 0;
    int m_nodes = 0;
};

enum class WhiteSpace
{
    Ignored,
    Reported
};

/// The parser that documents use anyway, with the gate put in when it starts: one parser that reads the
/// bytes once leaves no room for two that understand them differently.
class GatedReader final : public QXmlSimpleReader
{
public:
    GatedReader(WhiteSpace whiteSpace, int maximalNodes) : m_maximalNodes(maximalNodes)
    {
        setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
        setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
        setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"),
                   whiteSpace == WhiteSpace::Reported);
    }

    using QXmlSimpleReader::parse;

    bool parse(const QXmlInputSource *input) override
    {
        Gate gate(contentHandler(), lexicalHandler(), m_maximalNodes);
        setContentHandler(&gate);
        setLexicalHandler(&gate);
        return QXmlSimpleReader::parse(input);
    }

private:
    int m_maximalNodes;
};

} // namespace

bool GatedXml::parse(const QByteArray &xml, QDomDocument &document, Error *error, const Limits &limits)
{
    Error found;
    bool good = false;
    if (xml.size() > limits.size) {
        found.message = refusal(QT_TRANSLATE_NOOP("GatedXml", "the document is too large"));
    } else {
        QXmlInputSource source;
        source.setData(xml);
        GatedReader reader(WhiteSpace::Ignored, limits.nodes);
        good = document.setContent(&source, &reader, &found.message, &found.line, &found.column);
        // The parser tells its own errors in English and leaves the translation to whoever shows them.
        found.message = QCoreApplication::translate("QXml", found.message.toUtf8().constData());
    }
    // The builder of the tree leaves what it had when it was stopped.
    if (!good)
        document = QDomDocument();
    if (error)
        *error = found;
    return good;
}

void GatedXml::read(const QByteArray &xml, QXmlDefaultHandler &handler)
{
    if (xml.size() > Limits().size)
        return;
    QXmlInputSource source;
    source.setData(xml);
    GatedReader reader(WhiteSpace::Reported, Limits().nodes);
    reader.setContentHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.parse(&source);
}
