#pragma once

#include <QString>

/// Fills in the fields of a report from a table of ids and texts, and saves it. A report that is not there
/// yet is made from the empty form of the session's language. Throws SampleError.
///
/// An id names a field or a check box, which the text "x" ticks. "cell 3,2-4" names cells of the test table:
/// row 3, columns 2 to 4; "image 430,935,300" is a picture on the first page by the left and upper edge and
/// its width, whose file stands beside the table.
void fillReport(const QString &path, const QString &table, bool german);
