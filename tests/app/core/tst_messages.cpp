#include "app/core/Messages.h"
#include "tests/support/BoxWatcher.h"
#include "tests/support/TestMain.h"

namespace {

/// Shows a message and lets `act` look at the box before it is answered by its first button.
MessageAnswer show(const Message &message, const std::function<void(QMessageBox *)> &act)
{
    QTimer::singleShot(20, qApp, [act] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box) {
            QTest::qFail("no box has come", __FILE__, __LINE__);
            return;
        }
        act(box);
        box->buttons().first()->click();
    });
    return showMessage(message);
}

} // namespace

class TestMessages : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void plainMessageHasAnOkButtonOnly();
    void everythingGivenReachesTheBox();
    void windowIconIsThatGiven();
    void tickedCheckBoxIsTold();
    void checkBoxLeftAloneIsTold();
    void onlyYesIsYes();
    void centredBoxStandsInTheMiddleOfTheScreen();
    void boxIsModal();
    void fileNamesAreNoMarkup();
    void flashedMessageIsGoneAtOnce();
    void sinkTakesTheMessages();

private:
    QWidget m_parent;
};

void TestMessages::cleanup()
{
    setMessageSink({});
}

void TestMessages::plainMessageHasAnOkButtonOnly()
{
    Message message;
    message.text = "Something happened.";
    BoxWatcher watcher;
    watcher.expect("Something happened.", QMessageBox::Ok);
    const MessageAnswer answer = showMessage(message);
    QCOMPARE(answer.button, QMessageBox::Ok);
    QVERIFY(!answer.checked);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.icon, QMessageBox::NoIcon);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(box.checkBoxText, QString());
    QCOMPARE(box.parent, nullptr);
}

void TestMessages::everythingGivenReachesTheBox()
{
    Message message;
    message.parent = &m_parent;
    message.icon = QMessageBox::Critical;
    message.text = "Text";
    message.informativeText = "More\nlines";
    message.buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    message.defaultButton = QMessageBox::Discard;
    message.title = "Title";
    message.checkBoxText = "Tick";
    BoxWatcher watcher;
    watcher.expect("Text", QMessageBox::Discard);
    QCOMPARE(showMessage(message).button, QMessageBox::Discard);
    const BoxWatcher::Box box = watcher.boxes().first();
    QCOMPARE(box.parent, &m_parent);
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(box.informativeText, QString("More\nlines"));
    QCOMPARE(box.buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(box.defaultButton, QMessageBox::Discard);
    QCOMPARE(box.title, QString("Title"));
    QCOMPARE(box.checkBoxText, QString("Tick"));
}

void TestMessages::windowIconIsThatGiven()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    Message message;
    message.windowIcon = QIcon(pixmap);
    QImage shown;
    show(message, [&](QMessageBox *box) { shown = box->windowIcon().pixmap(16).toImage(); });
    QCOMPARE(shown, QIcon(pixmap).pixmap(16).toImage());
}

void TestMessages::tickedCheckBoxIsTold()
{
    Message message;
    message.text = "Really?";
    message.checkBoxText = "Do not ask again";
    BoxWatcher watcher;
    watcher.expect("Really?", QMessageBox::Ok, true);
    QVERIFY(showMessage(message).checked);
}

void TestMessages::checkBoxLeftAloneIsTold()
{
    Message message;
    message.text = "Really?";
    message.checkBoxText = "Do not ask again";
    BoxWatcher watcher;
    watcher.expect("Really?", QMessageBox::Ok);
    QVERIFY(!showMessage(message).checked);
}

void TestMessages::onlyYesIsYes()
{
    Message message;
    message.text = "Really?";
    message.buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    BoxWatcher watcher;
    watcher.expect("Really?", QMessageBox::Yes);
    QVERIFY(askYesNo(message));
    watcher.expect("Really?", QMessageBox::No);
    QVERIFY(!askYesNo(message));
    watcher.expect("Really?", QMessageBox::Cancel);
    QVERIFY(!askYesNo(message));
}

void TestMessages::centredBoxStandsInTheMiddleOfTheScreen()
{
    m_parent.setGeometry(0, 0, 100, 100);
    Message message;
    message.parent = &m_parent;
    message.text = "A message of some length, so that the box is not small.";
    message.centred = true;
    QPoint place;
    show(message, [&](QMessageBox *box) { place = box->pos(); });
    // The size hint is that from before the box is shown; showing makes it somewhat wider.
    const QSize hint = QMessageBox(message.icon, message.title, message.text, message.buttons).sizeHint();
    const QPoint centre = QGuiApplication::primaryScreen()->geometry().center();
    QCOMPARE(place, centre - QPoint(hint.width() / 2, hint.height() / 2));
}

void TestMessages::boxIsModal()
{
    bool modal = false;
    show(Message(), [&](QMessageBox *box) { modal = box->isModal(); });
    QVERIFY(modal);
}

void TestMessages::fileNamesAreNoMarkup()
{
    Message message;
    message.text = "Could not open <img src='a'>.kelir";
    message.informativeText = "<b>bold</b>";
    QVector<Qt::TextFormat> formats;
    show(message, [&](QMessageBox *box) {
        for (const char *name : {"qt_msgbox_label", "qt_msgbox_informativelabel"})
            formats.append(box->findChild<QLabel *>(name)->textFormat());
    });
    QCOMPARE(formats, (QVector<Qt::TextFormat>{Qt::PlainText, Qt::PlainText}));
}

void TestMessages::flashedMessageIsGoneAtOnce()
{
    BoxWatcher watcher;
    flashMessage("Nothing to worry about");
    QTest::qWait(30);
    QCOMPARE(watcher.boxes().size(), 0);
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList{&m_parent});

    QStringList taken;
    setMessageSink([&](const Message &message) {
        taken.append(message.text);
        return MessageAnswer();
    });
    flashMessage("Nothing to worry about");
    QCOMPARE(taken, QStringList("Nothing to worry about"));
}

void TestMessages::sinkTakesTheMessages()
{
    QStringList taken;
    setMessageSink([&](const Message &message) {
        taken.append(message.text);
        return MessageAnswer{QMessageBox::Yes, true};
    });
    Message message;
    message.text = "To the sink";
    QVERIFY(askYesNo(message));
    QVERIFY(showMessage(message).checked);
    QCOMPARE(taken, QStringList({"To the sink", "To the sink"}));

    setMessageSink({});
    BoxWatcher watcher;
    watcher.expect("To the sink", QMessageBox::Ok);
    showMessage(message);
    QCOMPARE(taken.size(), 2);
}

KELMAR_TEST_MAIN(TestMessages)
#include "tst_messages.moc"
