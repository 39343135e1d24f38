#pragma once

#include <QTextDocument>

namespace IVCurve {

/// A text document that fetches nothing: no picture and no style sheet, from wherever its HTML would have it.
/// The name of a string may be HTML that somebody else has written.
class IsolatedTextDocument : public QTextDocument
{
    Q_OBJECT

public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int type, const QUrl &name) override;
};

} // namespace IVCurve
