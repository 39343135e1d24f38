#include "report/items/SafeSvg.h"

#include "report/items/BoundedPicture.h"

#include <QHash>
#include <QImage>
#include <QVector>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int maxBytes = 16 * 1024 * 1024;
constexpr int maxDepth = 256;
constexpr int maxEntityText = 64 * 1024;
constexpr double maxExtent = 100000.0;
/// Elements that references may add to those that stand in the file.
constexpr qint64 maxRepeated = 60000;
constexpr int maxElements = 60000;
constexpr int maxText = 1000000;
constexpr qint64 maxEmbeddedBytes = 64LL * 1024 * 1024;
/// Each rule of a style sheet is held against each element.
constexpr qint64 maxStyleEffort = 20000000;
constexpr qint64 maxStyleSize = 256LL * 1024;
/// The renderer sorts the stops of a gradient anew at each of them.
constexpr int maxStops = 10000;

/// Copies a drawing and leaves out what must not be drawn.
class SvgCopy
{
public:
    explicit SvgCopy(const QByteArray &svg) : m_reader(svg), m_writer(&m_result), m_inputSize(svg.size())
    {
        // The renderer goes by full names too. A prefix that nobody declared is no error to it.
        m_reader.setNamespaceProcessing(false);
        m_reader.setEntityExpansionLimit(maxEntityText);
    }

    QByteArray result()
    {
        while (m_good && !m_reader.atEnd())
            take(m_reader.readNext());
        const bool isGood = m_good && !m_reader.hasError() && !m_elements.isEmpty() &&
                            m_styleSize <= maxStyleSize &&
                            m_styleSize * m_elements.size() <= maxStyleEffort && repeatsLittle();
        return isGood ? m_result : QByteArray();
    }

private:
    /// What counts of an element once its drawing is repeated by reference.
    struct Element
    {
        QString reference;
        QVector<int> children;
        bool isStyle = false;
        int stops = 0;
        qint64 cost = 0;
        bool isBeingCounted = false;
    };

    void take(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            m_writer.writeEndElement();
            m_open.removeLast();
            break;
        case QXmlStreamReader::Characters:
            count(m_reader.text().size());
            countText(m_reader.text().size());
            m_writer.writeCharacters(m_reader.text().toString());
            break;
        case QXmlStreamReader::EntityReference:
            m_good = false;
            break;
        default:
            // Declarations, comments and processing instructions, which name style sheets, are left out.
            break;
        }
    }

    void startElement()
    {
        const QString name = localName(m_reader.qualifiedName());
        const bool isStop = name == QLatin1String("stop");
        if (m_open.size() >= maxDepth || m_elements.size() >= maxElements ||
            (m_elements.isEmpty() && !isRoot(name)) ||
            (isStop && !m_open.isEmpty() && ++m_elements[m_open.last()].stops > maxStops)) {
            m_good = false;
            return;
        }
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (isAnimation(name) || (name == QLatin1String("image") && !isEmbedded(attributes))) {
            m_reader.skipCurrentElement();
            return;
        }
        m_writer.writeStartElement(m_reader.qualifiedName().toString());
        Element element;
        element.isStyle = name == QLatin1String("style");
        for (const QXmlStreamAttribute &attribute : attributes) {
            count(attribute.value().size());
            const QString attributeName = attribute.qualifiedName().toString();
            const QString value = attribute.value().toString();
            m_writer.writeAttribute(attributeName, value);
            if (localName(attribute.qualifiedName()) == QLatin1String("href"))
                element.reference = name == QLatin1String("use") ? value.trimmed().mid(1) : QString();
            else if (attributeName == QLatin1String("id") || attributeName == QLatin1String("xml:id"))
                m_byId[value].append(m_elements.size());
        }
        if (!m_open.isEmpty())
            m_elements[m_open.last()].children.append(m_elements.size());
        m_open.append(m_elements.size());
        m_elements.append(element);
    }

    static QString localName(const QStringRef &qualifiedName)
    {
        return qualifiedName.mid(qualifiedName.lastIndexOf(QLatin1Char(':')) + 1).toString();
    }

    /// Pages stand still: a drawing that moves would be painted again and again.
    static bool isAnimation(const QString &name)
    {
        return name.startsWith(QLatin1String("animate")) || name == QLatin1String("set");
    }

    /// The drawing as such, not larger than anything that a page has room for.
    bool isRoot(const QString &name) const
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        return name == QLatin1String("svg") && isExtent(attributes.value(QLatin1String("width"))) &&
               isExtent(attributes.value(QLatin1String("height"))) &&
               areExtents(attributes.value(QLatin1String("viewBox")));
    }

    static bool areExtents(const QStringRef &list)
    {
        const QString plain = list.toString().replace(QLatin1Char(','), QLatin1Char(' ')).simplified();
        const QVector<QStringRef> parts = plain.splitRef(QLatin1Char(' '), Qt::SkipEmptyParts);
        return std::all_of(parts.begin(), parts.end(), isExtent);
    }

    static bool isExtent(const QStringRef &length)
    {
        const QStringRef text = length.trimmed();
        int end = 0;
        while (end < text.size() && QLatin1String("0123456789+-.eE").contains(text.at(end)))
            ++end;
        // The units "em" and "ex" begin like an exponent.
        while (end > 0 && text.at(end - 1).isLetter())
            --end;
        bool isNumber = false;
        const double value = text.left(end).toDouble(&isNumber);
        return text.isEmpty() || (isNumber && std::abs(value) <= maxExtent);
    }

    /// True for a picture that travels inside the drawing and can be shown. Drawings in drawings are not
    /// followed.
    bool isEmbedded(const QXmlStreamAttributes &attributes)
    {
        const QStringRef href = attributes.value(QLatin1String("xlink:href"));
        const int begin = href.lastIndexOf(QLatin1String("base64,"));
        if (!href.trimmed().startsWith(QLatin1String("data:")) || begin < 0)
            return false;
        const QByteArray data = QByteArray::fromBase64(href.mid(begin + 7).toLatin1());
        const QImage picture = decodeBoundedPicture(data);
        m_embeddedBytes += picture.sizeInBytes();
        return !picture.isNull() && m_embeddedBytes <= maxEmbeddedBytes;
    }

    /// Entities are what makes more characters come out than went in.
    void count(int characters)
    {
        m_characters += characters;
        if (m_characters > m_inputSize + maxEntityText)
            m_good = false;
    }

    void countText(int characters)
    {
        if (!m_open.isEmpty() && m_elements.at(m_open.last()).isStyle)
            m_styleSize += characters;
        else
            m_textSize += characters;
        if (m_textSize > maxText)
            m_good = false;
    }

    bool repeatsLittle()
    {
        const qint64 limit = m_elements.size() + maxRepeated;
        return costOf(0, limit, 0) <= limit;
    }

    qint64 costOf(int index, qint64 limit, int depth)
    {
        Element &element = m_elements[index]; // the vector does not grow any more
        if (element.cost > 0)
            return element.cost;
        if (element.isBeingCounted || depth > 4 * maxDepth)
            return limit + 1;
        element.isBeingCounted = true;
        qint64 cost = 1;
        for (int child : element.children)
            cost = qMin(limit + 1, cost + costOf(child, limit, depth + 1));
        const QVector<int> targets = m_byId.value(element.reference);
        for (int target : targets)
            cost = qMin(limit + 1, cost + costOf(target, limit, depth + 1));
        element.isBeingCounted = false;
        element.cost = cost;
        return cost;
    }

    QXmlStreamReader m_reader;
    QByteArray m_result;
    QXmlStreamWriter m_writer;
    qint64 m_inputSize;
    qint64 m_characters = 0;
    qint64 m_embeddedBytes = 0;
    qint64 m_styleSize = 0;
    qint64 m_textSize = 0;
    bool m_good = true;
    QVector<int> m_open;
    QVector<Element> m_elements;
    QHash<QString, QVector<int>> m_byId;
};

} // namespace

QByteArray safeSvg(const QByteArray &svg)
{
    return svg.size() <= maxBytes ? SvgCopy(svg).result() : QByteArray();
}
