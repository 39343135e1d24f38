#include "app/dialogs/DialogAbout.h"
#include "res/Resources.h"
#include "tests/support/TestMain.h"

#include <QLabel>

class TestDialogAbout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void titleNamesTheProgram();
    void sizeIsFixed();
    void versionIsWrittenInWhiteOnThePicture();
    void pictureOfTheStartIsTheBackground();
};

void TestDialogAbout::titleNamesTheProgram()
{
    QCOMPARE(DialogAbout().windowTitle(), QString("About Kelmar"));
}

void TestDialogAbout::sizeIsFixed()
{
    DialogAbout dialog;
    dialog.show();
    QCOMPARE(dialog.size(), QSize(400, 300));
    dialog.resize(900, 900);
    QCOMPARE(dialog.size(), QSize(400, 300));
    dialog.resize(10, 10);
    QCOMPARE(dialog.size(), QSize(400, 300));
}

void TestDialogAbout::versionIsWrittenInWhiteOnThePicture()
{
    DialogAbout dialog;
    dialog.show();
    const auto *label = dialog.findChild<QLabel *>();
    QCOMPARE(label->text(), QString("V2.2.0.0"));
    QCOMPARE(label->styleSheet(), QString("color: rgb(255, 255, 255);"));
    QCOMPARE(label->font().family(), QString("Arial"));
    QCOMPARE(label->font().pointSize(), 10);
    QCOMPARE(label->font().weight(), 75);
    QVERIFY(dialog.rect().contains(label->geometry()));
    QVERIFY(label->sizeHint().width() <= label->width());
    const QImage image = dialog.grab(label->geometry()).toImage();
    int white = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            white += image.pixelColor(x, y) == QColor(Qt::white);
    }
    QVERIFY2(white > 20, qPrintable(QString::number(white)));
}

void TestDialogAbout::pictureOfTheStartIsTheBackground()
{
    DialogAbout dialog;
    QCOMPARE(dialog.styleSheet(),
             QString("QDialog { background-image: url(:res/images/Varnhold_splash.png); }"));
    dialog.show();
    const QImage picture = QPixmap(":res/images/Varnhold_splash.png").toImage();
    QVERIFY(!picture.isNull());
    QCOMPARE(dialog.grab().toImage().pixelColor(60, 114), picture.pixelColor(60, 114));
    QCOMPARE(dialog.grab().toImage().pixelColor(322, 146), picture.pixelColor(322, 146));
}

KELMAR_TEST_MAIN(TestDialogAbout)
#include "tst_dialogabout.moc"
