#pragma once

#include <QCoreApplication>
#include <QString>

namespace IVCurve {

class CurveDatabase;
class TesterCurveFile;
class TreeItem;

/// Takes the tests of a tester's results file into a curve file: a folder named after the file, and below it
/// a string for each test. The strings are in the file at once, the tree when it is saved.
class TesterCurveImporter
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::TesterCurveImporter)

public:
    TesterCurveImporter(const QString &filePath, CurveDatabase *database);

    /// Never true: an import leaves the document modified and is saved by the user alone.
    bool run();

private:
    void importLine(const TesterCurveFile &file, int line);
    /// Tells of a line whose sum is wrong, unless the user has had enough of it.
    void tellChecksum(int line);
    void fillNode(TreeItem &node, const TesterCurveFile &file, int line, bool checksumFailed);

    QString m_filePath;
    CurveDatabase *m_database;
    bool m_showErrors = true;
};

} // namespace IVCurve
