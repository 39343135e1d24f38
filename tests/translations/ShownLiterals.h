#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A string literal of C++ code, with the calls around it. Literals side by side are one.
struct CodeLiteral
{
    QString text;
    /// Name of what is called with the literal, for example "setText", or declared, "QLabel"; the innermost
    /// comes first. Braces and mere parentheses have no name.
    QStringList calls;
    /// Members the literal is assigned to, for example "informativeText".
    QStringList assignedTo;
};

/// Finds texts that the user sees and that no catalogue can translate.
namespace ShownLiterals {

/// All literals of C++ text; comments and preprocessor lines must be gone.
QVector<CodeLiteral> literalsOf(const QString &code);

/// True if the literal is within tr() or its like.
bool isTranslated(const CodeLiteral &literal);
/// True if the literal is words for the user: it is given to something that shows texts, or it reads like a
/// sentence and is given to nothing that is known to take other sentences (style sheets, SQL).
bool isShown(const CodeLiteral &literal);

/// The literals of C++ text, comments included, that the user sees untranslated.
QStringList untranslatedIn(const QString &source);

/// The words of a .ui form that are marked as not to be translated.
QStringList untranslatedInForm(const QByteArray &form);

} // namespace ShownLiterals
