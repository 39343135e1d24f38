#pragma once

#include <QString>

class AbstractDocument;
class QWidget;

/// Makes the document for a file by its suffix; it reads its file and tells by isValid() whether that
/// went well. Files of other types go to the desktop, and the result is null.
AbstractDocument *createDocument(const QString &path, QWidget *parent);

/// Makes a new file in `folder` as a copy of the favourite for the suffix of `name`, under a name that is
/// free, and returns its path. Where there is no favourite yet, the pristine document becomes it.
QString createDocumentFile(const QString &folder, const QString &name);
