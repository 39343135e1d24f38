#include "app/core/HideableMessage.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

namespace {

const QString key = QStringLiteral("Tests/HideNotice");

QMessageBox::StandardButton ask()
{
    Message question;
    question.text = "Go on?";
    question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
    return HideableMessage::show(question, key);
}

} // namespace

class TestHideableMessage : public QObject
{
    Q_OBJECT

private slots:
    void init() { TestHome::instance()->reset(); }

    void isShownUntilTheUserHidesIt();
    void checkBoxIsRememberedWhateverTheAnswer();
    void checkBoxStartsEmptyEachTime();
};

void TestHideableMessage::isShownUntilTheUserHidesIt()
{
    QVERIFY(!HideableMessage::isHidden(key));
    QSettings().setValue(key, false);
    QVERIFY(!HideableMessage::isHidden(key));
    QSettings().setValue(key, true);
    QVERIFY(HideableMessage::isHidden(key));
}

void TestHideableMessage::checkBoxIsRememberedWhateverTheAnswer()
{
    for (const QMessageBox::StandardButton answer : {QMessageBox::Ok, QMessageBox::Cancel}) {
        for (const bool ticked : {true, false}) {
            BoxWatcher watcher;
            watcher.expect("Go on?", answer, ticked);
            QCOMPARE(ask(), answer);
            QCOMPARE(QSettings().value(key), QVariant(ticked));
            QCOMPARE(watcher.boxes().value(0).checkBoxText, QString("Do not show this message again"));
        }
    }
}

void TestHideableMessage::checkBoxStartsEmptyEachTime()
{
    QSettings().setValue(key, true);
    BoxWatcher watcher;
    watcher.expect("Go on?", QMessageBox::Ok);
    ask();
    QCOMPARE(QSettings().value(key), QVariant(false));
}

KELMAR_TEST_MAIN(TestHideableMessage)
#include "tst_hideablemessage.moc"
