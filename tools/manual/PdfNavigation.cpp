#include "tools/manual/PdfNavigation.h"

#include <QTextCodec>

#include <stdexcept>

namespace {

[[noreturn]] void fail(const char *what)
{
    throw std::runtime_error(std::string("the PDF file has no ") + what);
}

/// The text from behind `start` up to `end`, looked for from `from`.
QByteArray between(const QByteArray &bytes, const QByteArray &start, const QByteArray &end, int from = 0)
{
    const int begin = bytes.indexOf(start, from);
    const int stop = begin < 0 ? -1 : bytes.indexOf(end, begin + start.size());
    if (stop < 0)
        fail(start.constData());
    return bytes.mid(begin + start.size(), stop - begin - start.size());
}

/// A text of a PDF file: UTF-16 with its mark, in hexadecimal digits.
QByteArray pdfText(const QString &text)
{
    QTextEncoder encoder(QTextCodec::codecForName("UTF-16BE"), QTextCodec::IgnoreHeader);
    return "<FEFF" + encoder.fromUnicode(text).toHex() + '>';
}

class Update
{
public:
    explicit Update(const QByteArray &pdf) : m_pdf(pdf)
    {
        const int trailer = pdf.lastIndexOf("trailer");
        if (trailer < 0)
            fail("trailer");
        m_size = between(pdf, "/Size", "\n", trailer).trimmed().toInt();
        m_root = between(pdf, "/Root", "R", trailer).trimmed().split(' ').first().toInt();
        m_info = between(pdf, "/Info", "R", trailer).trimmed();
        m_oldTable = between(pdf, "startxref\n", "\n", trailer).trimmed();
        readPages();
    }

    void addOutline(const QVector<PdfBookmark> &bookmarks)
    {
        const int first = m_size;
        m_size += bookmarks.size() + 1;
        const int outline = m_size - 1;
        for (int i = 0; i < bookmarks.size(); ++i)
            write(first + i, item(bookmarks, i, first, outline));
        const QVector<int> top = childrenOf(bookmarks, -1);
        write(outline, "<<\n/Type /Outlines\n/First " + reference(first + top.first()) + "\n/Last " +
                           reference(first + top.last()) + "\n/Count " + QByteArray::number(top.size()) +
                           "\n>>");
        const QByteArray root = QByteArray::number(m_root);
        const QByteArray catalogue = between(m_pdf, '\n' + root + " 0 obj\n<<\n", ">>\nendobj");
        write(m_root,
              "<<\n" + catalogue + "/Outlines " + reference(outline) + "\n/PageMode /UseOutlines\n>>");
    }

    void lead(const QMap<QString, PdfPlace> &places)
    {
        const QByteArray start("\n<<\n/Type /Annot\n/Subtype /Link\n");
        for (int at = m_pdf.indexOf(start); at >= 0; at = m_pdf.indexOf(start, at + 1)) {
            const QByteArray body =
                m_pdf.mid(at + start.size(), m_pdf.indexOf("endobj", at) - at - start.size());
            const QString address = QString::fromLatin1(between(body, "/URI (", ")\n"));
            if (!address.startsWith(QLatin1Char('#')))
                continue;
            if (!places.contains(address.mid(1)))
                fail(address.toLatin1().constData());
            const int line = m_pdf.lastIndexOf('\n', at - 1) + 1;
            const int number = m_pdf.mid(line, m_pdf.indexOf(' ', line) - line).toInt();
            write(number, "<<\n/Type /Annot\n/Subtype /Link\n/Rect [" + between(body, "/Rect [", "]") +
                              "]\n/Border [0 0 0]\n/Dest " + destination(places.value(address.mid(1))) +
                              "\n>>");
        }
    }

    QByteArray finished() const
    {
        QByteArray result = m_pdf;
        if (!result.endsWith('\n'))
            result += '\n';
        QByteArray table("xref\n");
        for (auto object = m_objects.cbegin(); object != m_objects.cend(); ++object) {
            table += QByteArray::number(object.key()) + " 1\n" +
                     QByteArray::number(result.size()).rightJustified(10, '0') + " 00000 n \n";
            result += QByteArray::number(object.key()) + " 0 obj\n" + object.value() + "\nendobj\n";
        }
        const QByteArray start = QByteArray::number(result.size());
        return result + table + "trailer\n<<\n/Size " + QByteArray::number(m_size) + "\n/Info " + m_info +
               " R\n/Root " + reference(m_root) + "\n/Prev " + m_oldTable + "\n>>\nstartxref\n" + start +
               "\n%%EOF\n";
    }

private:
    void readPages()
    {
        // The writer puts one flat list of pages at the end.
        const int list = m_pdf.lastIndexOf("/Kids");
        if (list < 0)
            fail("list of pages");
        for (const QByteArray &line : between(m_pdf, "[", "]", list).split('\n')) {
            if (!line.trimmed().isEmpty())
                m_pages.append(line.trimmed().split(' ').first().toInt());
        }
        m_pageHeight = between(m_pdf, "/MediaBox [0 0 ", "]").split(' ').last().toDouble();
    }

    static QByteArray reference(int object) { return QByteArray::number(object) + " 0 R"; }

    QByteArray destination(const PdfPlace &place) const
    {
        if (place.page < 0 || place.page >= m_pages.size())
            fail("page for a link");
        return '[' + reference(m_pages.at(place.page)) + " /XYZ 0 " +
               QByteArray::number(m_pageHeight - place.y, 'f', 2) + " null]";
    }

    void write(int object, const QByteArray &body) { m_objects.insert(object, body); }

    static int parentOf(const QVector<PdfBookmark> &bookmarks, int index)
    {
        int parent = index - 1;
        while (parent >= 0 && bookmarks.at(parent).level >= bookmarks.at(index).level)
            --parent;
        return parent;
    }

    static QVector<int> childrenOf(const QVector<PdfBookmark> &bookmarks, int parent)
    {
        QVector<int> children;
        for (int i = parent + 1; i < bookmarks.size(); ++i) {
            if (parentOf(bookmarks, i) == parent)
                children.append(i);
        }
        return children;
    }

    QByteArray item(const QVector<PdfBookmark> &bookmarks, int index, int first, int outline) const
    {
        const int parent = parentOf(bookmarks, index);
        const QVector<int> siblings = childrenOf(bookmarks, parent);
        const int place = siblings.indexOf(index);
        const QVector<int> children = childrenOf(bookmarks, index);
        QByteArray body = "<<\n/Title " + pdfText(bookmarks.at(index).title) + "\n/Parent " +
                          reference(parent < 0 ? outline : first + parent) + "\n/Dest " +
                          destination(bookmarks.at(index).place);
        if (place > 0)
            body += "\n/Prev " + reference(first + siblings.at(place - 1));
        if (place + 1 < siblings.size())
            body += "\n/Next " + reference(first + siblings.at(place + 1));
        // A count below 0 keeps the entries below this one folded.
        if (!children.isEmpty())
            body += "\n/First " + reference(first + children.first()) + "\n/Last " +
                    reference(first + children.last()) + "\n/Count " + QByteArray::number(-children.size());
        return body + "\n>>";
    }

    const QByteArray m_pdf;
    int m_size = 0;
    int m_root = 0;
    QByteArray m_info;
    QByteArray m_oldTable;
    double m_pageHeight = 0;
    QVector<int> m_pages;
    QMap<int, QByteArray> m_objects;
};

} // namespace

QByteArray withNavigation(const QByteArray &pdf, const QVector<PdfBookmark> &bookmarks,
                          const QMap<QString, PdfPlace> &places)
{
    Update update(pdf);
    if (!bookmarks.isEmpty())
        update.addOutline(bookmarks);
    update.lead(places);
    return update.finished();
}
