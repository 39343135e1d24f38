#include "app/dialogs/DialogWelcome.h"
#include "res/Resources.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

namespace {

/// Clicks the mark of a check box or radio button: beside its text a click counts for nothing.
void clickMark(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
}

} // namespace

class TestDialogWelcome : public QObject
{
    Q_OBJECT

public slots:
    void openPage(const QUrl &url) { m_pages.append(url); }

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler("https"); }

    void textsNameTheProgram();
    void heightIsFixedAndThePictureStandsBesideTheChoice();
    void buttonsWaitForAChoice_data();
    void buttonsWaitForAChoice();
    void hiddenWelcomeShowsNothingAndReturnsZero();
    void untickedWelcomeComesAgain();
    void tickAndOkHideItAtTheNextStart();
    void cancelStoresNothingWhateverIsTicked();
    void tutorialIsOpenedOnlyAfterOk();
    void closingTheWindowStoresNothing();

private:
    static int answer(const std::function<void(QWidget *)> &act);
    static QAbstractButton *button(const QWidget *dialog, QDialogButtonBox::StandardButton which)
    {
        return dialog->findChild<QDialogButtonBox *>()->button(which);
    }
    static QRadioButton *watchTutorial(const QWidget *dialog)
    {
        return dialog->findChild<QRadioButton *>("watchTutorial");
    }
    static QRadioButton *continueUsing(const QWidget *dialog)
    {
        return dialog->findChild<QRadioButton *>("continueUsing");
    }

    QVector<QUrl> m_pages;
};

void TestDialogWelcome::initTestCase()
{
    initResources();
    QDesktopServices::setUrlHandler("https", this, "openPage");
}

void TestDialogWelcome::init()
{
    TestHome::instance()->reset();
    m_pages.clear();
}

/// Runs the dialog and acts in it as the user.
int TestDialogWelcome::answer(const std::function<void(QWidget *)> &act)
{
    BoxWatcher watcher;
    watcher.expectDialog("DialogWelcome", act);
    DialogWelcome dialog;
    return dialog.exec();
}

void TestDialogWelcome::textsNameTheProgram()
{
    const DialogWelcome dialog;
    QCOMPARE(dialog.windowTitle(), QString("Welcome to Kelmar!"));
    QStringList labels;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        labels.append(label->text());
    QCOMPARE(labels,
             (QStringList{"Thank you for choosing Kelmar.", "Please choose one of the following options:"}));
    QCOMPARE(watchTutorial(&dialog)->text(), QString("Watch video tutorial now (recommended)"));
    QCOMPARE(continueUsing(&dialog)->text(), QString("Continue using Kelmar"));
    QCOMPARE(dialog.findChild<QCheckBox *>()->text(), QString("Do not show this message again"));
    QVERIFY(!dialog.findChild<QCheckBox *>()->isChecked());
}

void TestDialogWelcome::heightIsFixedAndThePictureStandsBesideTheChoice()
{
    DialogWelcome dialog;
    dialog.show();
    QCOMPARE(dialog.height(), 305);
    dialog.resize(dialog.width(), 600);
    QCOMPARE(dialog.height(), 305);
    auto *picture = dialog.findChild<QWidget *>("picture");
    QCOMPARE(picture->styleSheet(), QString("background-image: url(:/res/images/Varnhold_col_small.jpg);"));
    const QImage strip = QPixmap(":res/images/Varnhold_col_small.jpg").toImage();
    QVERIFY(!strip.isNull());
    QCOMPARE(picture->grab().toImage().pixelColor(20, 20), strip.pixelColor(20, 20));
    QVERIFY(picture->geometry().right() < watchTutorial(&dialog)->geometry().left());
}

void TestDialogWelcome::buttonsWaitForAChoice_data()
{
    QTest::addColumn<QString>("choice");
    QTest::newRow("tutorial") << "watchTutorial";
    QTest::newRow("continue") << "continueUsing";
}

void TestDialogWelcome::buttonsWaitForAChoice()
{
    QFETCH(QString, choice);
    DialogWelcome dialog;
    dialog.show();
    QVERIFY(!dialog.findChild<QDialogButtonBox *>()->isEnabled());
    QVERIFY(!watchTutorial(&dialog)->isChecked());
    QVERIFY(!continueUsing(&dialog)->isChecked());
    // At the press, before the button is let go.
    auto *radio = dialog.findChild<QRadioButton *>(choice);
    QTest::mousePress(radio, Qt::LeftButton, Qt::NoModifier, QPoint(8, radio->height() / 2));
    QVERIFY(dialog.findChild<QDialogButtonBox *>()->isEnabled());
}

void TestDialogWelcome::hiddenWelcomeShowsNothingAndReturnsZero()
{
    QSettings().setValue("Welcome/show", false);
    const BoxWatcher watcher;
    DialogWelcome dialog;
    QCOMPARE(dialog.exec(), 0);
    QVERIFY(!dialog.isVisible());
}

void TestDialogWelcome::untickedWelcomeComesAgain()
{
    for (int start = 0; start < 2; ++start) {
        QCOMPARE(answer([](QWidget *dialog) {
                     clickMark(continueUsing(dialog));
                     QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
                 }),
                 int(QDialog::Accepted));
    }
    QVERIFY(!QSettings().contains("Welcome/show"));
    QVERIFY(m_pages.isEmpty());
}

void TestDialogWelcome::tickAndOkHideItAtTheNextStart()
{
    answer([](QWidget *dialog) {
        clickMark(dialog->findChild<QCheckBox *>());
        clickMark(continueUsing(dialog));
        QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    });
    QCOMPARE(QSettings().value("Welcome/show"), QVariant("false"));
    const BoxWatcher watcher;
    QCOMPARE(DialogWelcome().exec(), 0);
}

void TestDialogWelcome::cancelStoresNothingWhateverIsTicked()
{
    QCOMPARE(answer([](QWidget *dialog) {
                 clickMark(dialog->findChild<QCheckBox *>());
                 clickMark(watchTutorial(dialog));
                 QTest::mouseClick(button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton);
             }),
             int(QDialog::Rejected));
    QVERIFY(!QSettings().contains("Welcome/show"));
    QVERIFY(m_pages.isEmpty());
}

void TestDialogWelcome::tutorialIsOpenedOnlyAfterOk()
{
    answer([this](QWidget *dialog) {
        clickMark(watchTutorial(dialog));
        QVERIFY(m_pages.isEmpty());
        QTest::mouseClick(button(dialog, QDialogButtonBox::Ok), Qt::LeftButton);
    });
    QCOMPARE(m_pages.size(), 1);
    QCOMPARE(m_pages.first().scheme(), QString("https"));
    QVERIFY(!QSettings().contains("Welcome/show"));
}

void TestDialogWelcome::closingTheWindowStoresNothing()
{
    QCOMPARE(answer([](QWidget *dialog) {
                 clickMark(dialog->findChild<QCheckBox *>());
                 dialog->close();
             }),
             int(QDialog::Rejected));
    QVERIFY(!QSettings().contains("Welcome/show"));
}

KELMAR_TEST_MAIN(TestDialogWelcome)
#include "tst_dialogwelcome.moc"
