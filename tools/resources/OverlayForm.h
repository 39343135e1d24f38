#pragma once

#include <QDomDocument>

/// What of a form a user could have changed, as a document that is laid over the form: fields, check boxes
/// and cells by their ids and places, and the pictures. Everything that has neither id nor picture is left
/// out with what it contains.
QDomDocument overlayOf(const QDomDocument &form);
