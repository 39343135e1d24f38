#include "tests/translations/ShownLiterals.h"

#include "tests/structure/SourceTree.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

const QStringList translating{
    "tr", "trUtf8", "translate", "QT_TR_NOOP", "QT_TRANSLATE_NOOP", "QT_TRANSLATE_NOOP3"};

/// What makes a string of a literal or completes one: the call around it counts.
const QStringList transparent{QString(),     "QStringLiteral", "QLatin1String", "QString",
                              "QStringList", "fromUtf8",       "fromLatin1",    "arg",
                              "append",      "join",           "QByteArray"};

const QStringList showing{// classes that take their text at birth
                          "QAction", "QCheckBox", "QCommandLinkButton", "QDockWidget", "QGroupBox", "QLabel",
                          "QMenu", "QPushButton", "QRadioButton", "QToolButton", "QUndoCommand", "QwtText",
                          // functions that set a text
                          "setAccessibleDescription", "setAccessibleName", "setAxisTitle", "setButtonText",
                          "setCurrentText", "setDetailedText", "setHeaderLabel", "setHeaderLabels",
                          "setHorizontalHeaderLabels", "setHtml", "setInformativeText", "setItemText",
                          "setLabelText", "setNameFilter", "setNameFilters", "setPlaceholderText",
                          "setPlainText", "setStatusTip", "setTabText", "setText", "setTitle", "setToolTip",
                          "setVerticalHeaderLabels", "setWhatsThis", "setWindowTitle",
                          // functions that add something with a text, or show one
                          "addAction", "addItem", "addItems", "addMenu", "addRow", "addTab", "drawText",
                          "flashMessage", "getExistingDirectory", "getOpenFileName", "getOpenFileNames",
                          "getSaveFileName", "getText", "insertItem", "insertTab", "showMessage", "tell"};

const QStringList shownMembers{"text", "informativeText", "title", "checkBoxText"};

/// What takes sentences that are not for the user: the toolkit's styles, the database, the developer.
const QStringList silent{"setStyleSheet", "static_assert", "qFatal", "Q_ASSERT_X", "prepare", "exec"};

/// A bracket that is open, and where in the code the current statement within it begins.
struct Bracket
{
    QString name;
    int statement = 0;
};

/// What stands before an opening parenthesis: the function, or the class of the object declared.
QString calledBefore(const QString &code, int parenthesis)
{
    static const QRegularExpression call(
        QStringLiteral("(?:\\b(\\w+)[ \\n]+)?\\b(\\w+)[ \\n]*(?:<([\\w:]+)>)?[ \\n]*$"));
    const auto match = call.match(code.mid(qMax(0, parenthesis - 120), qMin(120, parenthesis)));
    if (!match.hasMatch())
        return QString();
    if (match.captured(2).startsWith(QLatin1String("make_")))
        return match.captured(3);
    return showing.contains(match.captured(1)) ? match.captured(1) : match.captured(2);
}

QString unescaped(QString text)
{
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"))
        .replace(QLatin1String("\\t"), QLatin1String("\t"))
        .replace(QLatin1String("\\\""), QLatin1String("\""));
}

/// Reads the literals of code from its begin to its end.
class Reader
{
public:
    explicit Reader(const QString &code) : m_code(code), m_open{Bracket()} {}

    QVector<CodeLiteral> read()
    {
        static const QRegularExpression token(
            QStringLiteral(
                "(R\"(\\w*)\\((.*?)\\)\\2\")|\"((?:[^\"\\\\\\n]|\\\\.)*)\"|\\b'|'(?:[^'\\\\\\n]|\\\\.)+'|"
                "[(){}\\[\\];,]"),
            QRegularExpression::DotMatchesEverythingOption);
        auto tokens = token.globalMatch(m_code);
        while (tokens.hasNext()) {
            const auto match = tokens.next();
            if (match.captured().endsWith(QLatin1Char('"')))
                take(match.capturedStart(), match.capturedEnd(),
                     match.captured(1).isEmpty() ? unescaped(match.captured(4)) : match.captured(3));
            else
                mark(match.captured().at(0), match.capturedStart());
        }
        return m_literals;
    }

private:
    void take(int start, int end, const QString &text)
    {
        if (m_lastEnd >= 0 && m_code.mid(m_lastEnd, start - m_lastEnd).trimmed().isEmpty())
            m_literals.last().text += text;
        else
            m_literals.append(described(start, text));
        m_lastEnd = end;
    }

    void mark(QChar sign, int at)
    {
        switch (sign.unicode()) {
        case '(':
            m_open.append({calledBefore(m_code, at), at + 1});
            break;
        case '{':
        case '[':
            m_open.append({QString(), at + 1});
            break;
        case ')':
        case ']':
        case '}':
            if (m_open.size() > 1)
                m_open.removeLast();
            if (sign == QLatin1Char('}'))
                m_open.last().statement = at + 1;
            break;
        case ';':
        case ',':
            m_open.last().statement = at + 1;
            break;
        default: // a character, or the separator of a number's digits
            break;
        }
    }

    CodeLiteral described(int start, const QString &text) const
    {
        static const QRegularExpression assignment(QStringLiteral("(?:\\.|->)(\\w+)\\s*\\+?=(?!=)"));
        CodeLiteral literal;
        literal.text = text;
        for (int level = m_open.size() - 1; level >= 0; --level) {
            const Bracket &bracket = m_open.at(level);
            auto assigned = assignment.globalMatch(m_code.mid(bracket.statement, start - bracket.statement));
            while (assigned.hasNext())
                literal.assignedTo.append(assigned.next().captured(1));
            literal.calls.append(bracket.name);
        }
        return literal;
    }

    QString m_code;
    QVector<Bracket> m_open;
    QVector<CodeLiteral> m_literals;
    int m_lastEnd = -1;
};

/// The call that takes the literal's string.
QString takenBy(const CodeLiteral &literal)
{
    for (const QString &call : literal.calls) {
        if (!transparent.contains(call))
            return call;
    }
    return QString();
}

bool hasWords(QString text)
{
    static const QRegularExpression value(QStringLiteral("%L?\\d+"));
    static const QRegularExpression markup(QStringLiteral("<[^>]*>"));
    static const QRegularExpression word(QStringLiteral("\\p{L}{2,}"));
    if (text.startsWith(QLatin1Char(':')))
        return false; // a resource
    return text.remove(value).remove(markup).contains(word);
}

bool readsLikeASentence(const QString &text)
{
    static const QRegularExpression words(QStringLiteral("\\p{L}{2,}[,.:;!?)]* +[(\"]?\\p{L}{2,}"));
    static const QRegularExpression sql(QStringLiteral(
        "^(SELECT|INSERT|UPDATE|DELETE|CREATE|ALTER|DROP|PRAGMA|ATTACH|VACUUM|BEGIN|COMMIT)\\b"));
    return text.contains(words) && !text.contains(sql);
}

bool meets(const QStringList &some, const QStringList &others)
{
    return std::any_of(some.begin(), some.end(),
                       [&others](const QString &one) { return others.contains(one); });
}

} // namespace

QVector<CodeLiteral> ShownLiterals::literalsOf(const QString &code)
{
    return Reader(code).read();
}

bool ShownLiterals::isTranslated(const CodeLiteral &literal)
{
    return meets(literal.calls, translating);
}

bool ShownLiterals::isShown(const CodeLiteral &literal)
{
    const QString taker = takenBy(literal);
    if (showing.contains(taker))
        return hasWords(literal.text);
    if (silent.contains(taker))
        return false;
    const bool isMember = taker.isEmpty() && meets(literal.assignedTo, shownMembers);
    return (isMember && hasWords(literal.text)) || readsLikeASentence(literal.text);
}

QStringList ShownLiterals::untranslatedIn(const QString &source)
{
    static const QRegularExpression preprocessor(QStringLiteral("^[ \\t]*#.*$"),
                                                 QRegularExpression::MultilineOption);
    QStringList texts;
    for (const CodeLiteral &literal : literalsOf(SourceTree::codeOf(source, true).remove(preprocessor))) {
        if (!isTranslated(literal) && isShown(literal))
            texts.append(literal.text);
    }
    return texts;
}

QStringList ShownLiterals::untranslatedInForm(const QByteArray &form)
{
    QStringList texts;
    QXmlStreamReader xml(form);
    QString property;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("property"))
            property = xml.attributes().value(QLatin1String("name")).toString();
        if (!xml.isStartElement() || xml.name() != QLatin1String("string") ||
            property == QLatin1String("styleSheet"))
            continue;
        const bool marked = xml.attributes().value(QLatin1String("notr")) == QLatin1String("true");
        const QString text = xml.readElementText();
        if (marked && hasWords(text))
            texts.append(text);
    }
    return texts;
}
