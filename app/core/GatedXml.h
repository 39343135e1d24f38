#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>

class QXmlDefaultHandler;

/// Reading XML that may come from anywhere: a parser that stops at what no document of ours has.
namespace GatedXml {

/// Where and why a document was not read.
struct Error
{
    QString message;
    int line = 0;
    int column = 0;
};

/// How much of a document is read before it is refused.
struct Limits
{
    /// In bytes.
    int size = 64 * 1024 * 1024;
    /// Elements, attributes, texts and comments: each costs a hundred bytes or two in the tree, from four
    /// bytes of text.
    int nodes = 1 << 20;
};

/// Parses a document. Those that nest too deeply, exceed the limits or declare a document type are refused,
/// because none of ours does and each can exhaust memory. After a failure `document` is null. Without
/// `error` nothing is told.
bool parse(const QByteArray &xml, QDomDocument &document, Error *error = nullptr,
           const Limits &limits = Limits());

/// Reads a document to a handler, texts of white space included. Ends where the handler says so, at an error,
/// and where parse() would refuse the document.
void read(const QByteArray &xml, QXmlDefaultHandler &handler);

} // namespace GatedXml
