#pragma once

#include "tests/report/TestResource.h"

#include <QByteArray>
#include <QString>

class AbstractReportItem;
class QGraphicsItem;
class QGraphicsTextItem;
class ReportScene;

/// A small form of two pages as a template in the resources, and what tests of reports made from it need.
///
/// Page 1 (A4): a label, the fields "client" and "notes", the check box "done", the table "grid" whose
/// cell at row 1, column 0 has the id "Voc". Page 2 (A3): the field "remarks".
class ReportForm
{
public:
    ReportForm();

    static QString path() { return QStringLiteral(":res/test/form.pak"); }
    /// A container of a document made from the form, with these elements in it.
    static QByteArray document(const QByteArray &elements);
    static QByteArray xml(const QByteArray &elements);

private:
    TestResource m_resource;
};

/// The text editor of a field or cell.
QGraphicsTextItem *editorOf(const QGraphicsItem *item);
/// The plain text of the item with an id.
QString textOf(const ReportScene &scene, const char *id);
/// All report items of a type in the order in which they are saved.
QList<AbstractReportItem *> itemsOfType(const ReportScene &scene, int type);
/// The text of a table's cell.
QString cellText(const ReportScene &scene, const char *table, int column, int row);
