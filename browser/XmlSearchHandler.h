#pragma once

#include <QXmlDefaultHandler>

class QRegExp;

/// Looks for a wildcard expression in the text of an XML document. Each run of text is held against the
/// whole expression by itself, and the first that matches ends the reading.
class XmlSearchHandler : public QXmlDefaultHandler
{
public:
    explicit XmlSearchHandler(QRegExp *regExp);

    bool characters(const QString &text) override;

    bool found = false;

private:
    bool canMatch(const QString &text) const;

    QRegExp *m_regExp;
    /// A part of the expression that stands in every text that matches; may be empty.
    QString m_literal;
};
