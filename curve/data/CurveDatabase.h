#pragma once

#include <QCoreApplication>
#include <QSqlDatabase>

#include <memory>

namespace IVCurve {

class CurveGraphModel;
class CurveTreeModel;

/// A curve file, open for as long as the object lives, with the models of what it holds. The file is edited
/// in place; each statement commits by itself.
class CurveDatabase
{
    Q_DECLARE_TR_FUNCTIONS(IVCurve::CurveDatabase)

public:
    /// A file that cannot be opened is told and leaves the object without models. Throws std::exception,
    /// after a message, when the tree cannot be read.
    explicit CurveDatabase(const QString &path, const QString &driver = QStringLiteral("QSQLITE"));
    ~CurveDatabase();
    CurveDatabase(const CurveDatabase &) = delete;
    CurveDatabase &operator=(const CurveDatabase &) = delete;

    bool isOpen() const { return m_open; }
    /// Null if the file could not be opened.
    CurveGraphModel *graphModel() const { return m_graphModel.get(); }
    CurveTreeModel *treeModel() const { return m_treeModel.get(); }
    QSqlDatabase database() const { return m_database; }

private:
    bool openFile(const QString &path, const QString &driver);
    void closeFile();

    QSqlDatabase m_database;
    bool m_open = false;
    // The tree goes last: the graph follows it.
    std::unique_ptr<CurveTreeModel> m_treeModel;
    std::unique_ptr<CurveGraphModel> m_graphModel;
};

} // namespace IVCurve
