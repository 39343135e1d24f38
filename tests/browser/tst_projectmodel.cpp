#include "app/core/DocumentType.h"
#include "app/platform/Platform.h"
#include "browser/ProjectModel.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

namespace {

QImage picture(const QIcon &icon)
{
    return icon.pixmap(32, 32).toImage();
}

QImage picture(const char *name)
{
    return picture(QIcon(QStringLiteral(":res/fileTypes/%1.png").arg(QLatin1String(name))));
}

/// The shell's icon of a file where the shell has icons, else ours.
QImage expected(const QString &path, const char *name)
{
    const QIcon icon = Platform::shellIcon(path);
    return icon.isNull() ? picture(name) : picture(icon);
}

} // namespace

class TestProjectModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void thereIsOneColumnEverywhere();
    void theModelIsWritable();
    void filesShowTheIconOfTheirType();
    void fileWithoutIconOfOursShowsThatOfTheSystem();
    void otherRolesAreThoseOfTheFileSystem();
    void folderWithAChecklistShowsTheHandoverPackUntilTheChecklistGoes();
    void folderOfThatNameOrInASubfolderIsNoHandoverPack();
    void nothingSelectedAsksNothing();

private:
    QString inRoot(const QString &relative) const
    {
        return TestHome::instance()->projectsRoot() + '/' + relative;
    }
    QModelIndex indexOf(const QString &relative) const { return m_model->index(inRoot(relative)); }

    std::unique_ptr<ProjectModel> m_model;
};

void TestProjectModel::init()
{
    TestHome::instance()->reset();
    m_model = std::make_unique<ProjectModel>();
    m_model->setRootPath(TestHome::instance()->projectsRoot());
}

void TestProjectModel::cleanup()
{
    m_model.reset();
}

void TestProjectModel::thereIsOneColumnEverywhere()
{
    writeFile(inRoot("Job/site.kelir"), "x");
    QCOMPARE(m_model->columnCount(), 1);
    QCOMPARE(m_model->columnCount(indexOf("")), 1);
    QCOMPARE(m_model->columnCount(indexOf("Job")), 1);
    QVERIFY(!m_model->index(0, 1, indexOf("")).isValid());
}

void TestProjectModel::theModelIsWritable()
{
    writeFile(inRoot("site.kelir"), "x");
    QVERIFY(!m_model->isReadOnly());
    QVERIFY(m_model->flags(indexOf("site.kelir")) & Qt::ItemIsEditable);
    QVERIFY(m_model->setData(indexOf("site.kelir"), "roof.kelir"));
    QVERIFY(QFileInfo::exists(inRoot("roof.kelir")));
    QVERIFY(!QFileInfo::exists(inRoot("site.kelir")));
}

void TestProjectModel::filesShowTheIconOfTheirType()
{
    writeFile(inRoot("site.kelir"), "x");
    writeFile(inRoot("string.kelcrv"), "x");
    const QImage inspection =
        picture(m_model->data(indexOf("site.kelir"), Qt::DecorationRole).value<QIcon>());
    QVERIFY(!inspection.isNull());
    QCOMPARE(inspection, expected(inRoot("site.kelir"), "varnhold_inspection"));
    QCOMPARE(picture(m_model->data(indexOf("string.kelcrv"), Qt::DecorationRole).value<QIcon>()),
             expected(inRoot("string.kelcrv"), "varnhold_chart"));
    QVERIFY(inspection != picture("varnhold_chart"));
}

void TestProjectModel::fileWithoutIconOfOursShowsThatOfTheSystem()
{
    writeFile(inRoot("notes.xyz"), "x");
    const QIcon shells = Platform::shellIcon(inRoot("notes.xyz"));
    QCOMPARE(documentIcon(inRoot("notes.xyz")).isNull(), shells.isNull());
    const QIcon icon = m_model->data(indexOf("notes.xyz"), Qt::DecorationRole).value<QIcon>();
    QVERIFY(!icon.isNull());
    QCOMPARE(picture(icon), picture(shells.isNull() ? m_model->fileIcon(indexOf("notes.xyz")) : shells));
}

void TestProjectModel::otherRolesAreThoseOfTheFileSystem()
{
    writeFile(inRoot("site.kelir"), "x");
    QCOMPARE(m_model->data(indexOf("site.kelir"), Qt::DisplayRole).toString(), QString("site.kelir"));
    QCOMPARE(m_model->data(indexOf("site.kelir"), QFileSystemModel::FilePathRole).toString(),
             inRoot("site.kelir"));
    QVERIFY(!m_model->data(QModelIndex(), Qt::DisplayRole).isValid());
}

void TestProjectModel::folderWithAChecklistShowsTheHandoverPackUntilTheChecklistGoes()
{
    writeFile(inRoot("Job/handover.KELCHK"), "x");
    const auto shown = [this] {
        return picture(m_model->data(indexOf("Job"), Qt::DecorationRole).value<QIcon>());
    };
    QVERIFY(picture("folder") != picture("chp_folder"));
    QCOMPARE(shown(), picture("chp_folder"));
    QVERIFY(QFile::remove(inRoot("Job/handover.KELCHK")));
    QCOMPARE(shown(), picture("folder"));
}

void TestProjectModel::folderOfThatNameOrInASubfolderIsNoHandoverPack()
{
    QVERIFY(QDir().mkpath(inRoot("Job/folder.kelchk")));
    writeFile(inRoot("Job/Deeper/handover.kelchk"), "x");
    QCOMPARE(picture(m_model->data(indexOf("Job"), Qt::DecorationRole).value<QIcon>()), picture("folder"));
    QCOMPARE(picture(m_model->data(indexOf("Job/Deeper"), Qt::DecorationRole).value<QIcon>()),
             picture("chp_folder"));
}

void TestProjectModel::nothingSelectedAsksNothing()
{
    BoxWatcher watcher;
    m_model->removeFiles({});
    QCOMPARE(watcher.boxes().size(), 0);
}

KELMAR_TEST_MAIN(TestProjectModel)
#include "tst_projectmodel.moc"
