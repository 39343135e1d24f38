#include "app/batch/BatchCommands.h"

#include "app/batch/BatchFiles.h"
#include "app/core/DocumentType.h"
#include "diagram/DiagramGraphicsScene.h"
#include "diagram/InstallationDiagramDocument.h"
#include "import/CsvResultsModel.h"
#include "import/ImportStatusMessage.h"
#include "import/ResultsImporter.h"
#include "report/GraphicalReportDocument.h"
#include "report/ReportScene.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

namespace {

/// The translation context of the batch program's own messages.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

/// Set by the first message that is no mere notice.
bool loadRows(CsvResultsModel &model, const ImportOrder &order)
{
    QFile file(order.resultsFile);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(Text::tr("%1 cannot be read.").arg(order.resultsFile));
    model.load(&file);
    const int highest = *std::max_element(order.rows.begin(), order.rows.end());
    if (highest > model.rowCount())
        return refuse(
            Text::tr("%1 has no row %2: it has %3 rows.")
                .arg(order.resultsFile, QString::number(highest), QString::number(model.rowCount())));
    return true;
}

/// The file to start from: the report itself, or for a new one a copy of the pristine form in `folder`.
QString startingFile(const ImportOrder &order, const QTemporaryDir &folder)
{
    if (!order.makeNew) {
        if (!QFileInfo::exists(order.report))
            tell(Text::tr("%1 does not exist; --new makes it.").arg(order.report));
        return order.report;
    }
    const QString suffix = QFileInfo(order.report).suffix().toLower();
    const QString copy = folder.filePath(QLatin1String("new.") + suffix);
    if (!QFile::copy(pristinePath(suffix), copy))
        tell(Text::tr("There is no form for the suffix of %1.").arg(order.report));
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return copy;
}

bool writeRows(GraphicalReportDocument &document, CsvResultsModel &model, const ImportOrder &order)
{
    QModelIndexList indexes;
    for (const int row : order.rows)
        indexes.append(model.index(row - 1, 0));
    ResultsImporter importer(&document, &model);
    const int status = importer.importRows(indexes);
    if (status != 0)
        showMessage(importStatusMessage(status, order.report, indexes));
    return status == 0;
}

} // namespace

BatchExit importResults(const ImportOrder &order)
{
    if (!isApart(order.report, order.resultsFile) || (order.makeNew && !isFree(order.report, order.force)))
        return BatchBadInput;
    if (!order.pdf.isEmpty() && (!isApart(order.pdf, order.resultsFile) ||
                                 !isApart(order.pdf, order.report) || !isFree(order.pdf, order.force)))
        return BatchBadInput;
    CsvResultsModel model;
    if (!loadRows(model, order))
        return BatchBadInput;
    const QTemporaryDir folder;
    const QString start = startingFile(order, folder);
    if (!QFileInfo::exists(start))
        return BatchBadInput;
    GraphicalReportDocument document(start);
    if (!document.isValid() || !writeRows(document, model, order))
        return BatchBadInput;
    const bool saved = document.scene()->save(order.report);
    return batchOutcome(saved && (order.pdf.isEmpty() || document.scene()->writePdf(order.pdf)));
}

BatchExit printDocument(const QString &document, const QString &pdf, bool force)
{
    if (!isApart(pdf, document) || !isFree(pdf, force))
        return BatchBadInput;
    const DocumentType type = documentType(document);
    if (isReport(type)) {
        const GraphicalReportDocument report(document);
        return batchOutcome(report.isValid() && report.scene()->writePdf(pdf));
    }
    if (type == DocumentType::InstallationDiagram) {
        const InstallationDiagramDocument diagram(document);
        return batchOutcome(diagram.isValid() && diagram.scene()->writePdf(pdf));
    }
    return batchOutcome(refuse(Text::tr("%1 is no document that can be printed.").arg(document)));
}
