// A program that a test kills: works on a curve file in its document as a user does, over and over, and
// writes a line for each thing that has been reported done.
//   curve_editor FILE TESTERFILE
// The first string of the file is the one that is edited. Its module is that with the number 1.

#include "curve/data/CurveTree.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/ui/CurveDocument.h"
#include "res/Resources.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTimer>
#include <QtTest>

#include <cstdio>

using namespace IVCurve;

namespace {

void say(const char *what, int number)
{
    std::printf("%s %d\n", what, number);
    std::fflush(stdout);
}

void accept(QWidget *dialog)
{
    dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
}

/// The user at the dialogs.
class Hand : public QObject
{
public:
    explicit Hand(QString testerFile) : m_testerFile(std::move(testerFile)) { startTimer(1); }

    int round = 0;

protected:
    void timerEvent(QTimerEvent *) override
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible())
            return;
        const QByteArray name = dialog->metaObject()->className();
        if (name == "IVCurve::CurveDetailsDialog") {
            auto *irradiance = dialog->findChild<QLineEdit *>("G");
            irradiance->setText(QString::number(irradianceOf(round)));
            irradiance->setModified(true);
            accept(dialog);
        } else if (name == "IVCurve::CurveModulesChooser") {
            auto *modules = dialog->findChild<QComboBox *>("comboModule");
            modules->setCurrentIndex(modules->findData(1));
            dialog->findChild<QSpinBox *>("spinTotalInSeries")->setValue(seriesOf(round));
            accept(dialog);
        } else if (auto *files = qobject_cast<QFileDialog *>(dialog)) {
            auto *edit = files->findChild<QLineEdit *>("fileNameEdit");
            edit->setText(m_testerFile);
            QTest::keyClick(edit, Qt::Key_Return);
        } else if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
            box->accept();
        }
    }

public:
    static int irradianceOf(int round) { return 500 + round % 500; }
    static int seriesOf(int round) { return 1 + round % 99; }

private:
    QString m_testerFile;
};

void work(CurveDocument &document, Hand &hand)
{
    auto *view = document.findChild<CurveTree *>();
    auto *tree = qobject_cast<CurveTreeModel *>(view->model());
    int imported = 0;
    for (;; ++hand.round) {
        const QModelIndex edited = tree->index(0, 0, tree->index(tree->rowCount() - 2, 0));
        view->selectionModel()->select(edited,
                                       QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        say("details begin", Hand::irradianceOf(hand.round));
        document.slotViewDetails(edited);
        say("details done", Hand::irradianceOf(hand.round));
        say("module begin", Hand::seriesOf(hand.round));
        document.slotAssignModule();
        say("module done", Hand::seriesOf(hand.round));
        document.slotImport();
        imported += tree->rowCount(tree->index(0, 0));
        say("imported", imported);
        if (hand.round % 3 == 2) {
            const int rows = tree->rowCount();
            say("save begin", rows);
            document.save();
            say("save done", rows);
        }
        // What is done to the tree alone waits for the next save.
        tree->setData(tree->index(0, 0), "edited since the last save");
        say("edited", hand.round);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    initResources();
    QCoreApplication::setOrganizationName("Varnhold");
    QCoreApplication::setApplicationName("Kelmar");
    QSettings().setValue("Curves/HideAutomaticSaveWarning", true);
    QLocale::setDefault(QLocale("en"));
    const QStringList arguments = QCoreApplication::arguments();
    CurveDocument document(arguments.value(1));
    if (!document.isValid())
        return 1;
    Hand hand(arguments.value(2));
    work(document, hand);
}
