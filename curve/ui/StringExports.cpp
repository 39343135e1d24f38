#include "curve/ui/StringExports.h"

#include "app/core/WaitCursor.h"
#include "curve/data/StringRecord.h"
#include "curve/ui/CurveGraph.h"
#include "curve/ui/CurveReport.h"
#include "curve/ui/CurveReportPdf.h"
#include "curve/ui/ExportTarget.h"
#include "curve/ui/TreeStrings.h"

#include <QDesktopServices>
#include <QUrl>

namespace IVCurve {

void StringExports::report(const QModelIndexList &rows, CurveGraph &graph) const
{
    QString templateText;
    if (rows.isEmpty() || !CurveReport::readTemplate(templateText))
        return;
    CurveReport report(templateText);
    for (const QModelIndex &row : rows) {
        if (StringRecord *record = stringAt(row, m_file))
            report.addString(*record);
    }
    const QString path = askExportTarget(m_parent, tr("Save PDF file", "File Save Dialog"),
                                         tr("PDF file (*.pdf)", "File Save Dialog"));
    if (path.isEmpty())
        return;
    {
        const WaitCursor wait;
        writeReportPdf(report.html(), graph, path);
    }
    // Also when it could not be written: the viewer tells of it.
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void StringExports::points(const QModelIndexList &rows, PointExport::Kind kind) const
{
    const QVector<QPersistentModelIndex> places(rows.begin(), rows.end());
    for (const QPersistentModelIndex &place : places) {
        const StringRecord *proposed = stringAt(place, m_file);
        if (!proposed)
            continue;
        const QString path = askExportTarget(m_parent, tr("Save CSV file", "File Save Dialog"),
                                             tr("CSV file (*.csv)", "File Save Dialog"),
                                             proposed->header().name + PointExport::suffix(kind));
        // Once more: the row may have gone while the dialog was open.
        StringRecord *record = path.isEmpty() ? nullptr : stringAt(place, m_file);
        if (record)
            PointExport::writeFile(*record, kind, path);
    }
}

} // namespace IVCurve
