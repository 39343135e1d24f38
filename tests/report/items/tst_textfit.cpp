#include "report/items/TextFit.h"

#include "tests/support/TestMain.h"

#include <QFontMetrics>

namespace {

const QString longText = QStringLiteral("Roof-mounted array of forty modules in four strings. ").repeated(12);

/// Height that a text needs in a box at a scale, in the box's own units.
double heightAt(double scale, const QString &text, const QFont &font, const QSizeF &box)
{
    const QRect available(0, 0, int((box.width() - 10) / scale), int((box.height() - 4) / scale));
    return QFontMetrics(font).boundingRect(available, Qt::TextWordWrap, text).height() * scale;
}

} // namespace

class tst_TextFit : public QObject
{
    Q_OBJECT

private slots:
    void textThatFitsKeepsItsSize();
    void textThatNeedsMoreHeightBecomesSmallerSoThatItFits();
    void theScaleApproachesFromAbove();
    void theLastRoundTakesTheFullRatio();
    void anEmptyTextAsksForNothing();
    void aBoxWithoutRoomLeavesTheTextAsItIs();
    void theScaleNeverReachesZero();
};

void tst_TextFit::textThatFitsKeepsItsSize()
{
    QCOMPARE(textFitScale(QStringLiteral("12.5"), QFont("Arial", 9), QSizeF(170, 33)), 1.0);
}

void tst_TextFit::textThatNeedsMoreHeightBecomesSmallerSoThatItFits()
{
    const QFont font("Arial", 9);
    const QSizeF box(170, 60);
    const double scale = textFitScale(longText, font, box);
    QVERIFY2(scale < 1.0 && scale > 0.1, qPrintable(QString::number(scale)));
    QVERIFY(heightAt(scale, longText, font, box) <= box.height() - 4 + scale);
}

void tst_TextFit::theScaleApproachesFromAbove()
{
    // One round of the full ratio would end far below what is needed, because smaller letters take
    // fewer lines.
    const QFont font("Arial", 9);
    const QSizeF box(170, 60);
    const double needed =
        QFontMetrics(font).boundingRect(QRect(0, 0, 160, 56), Qt::TextWordWrap, longText).height();
    QVERIFY(textFitScale(longText, font, box) > 56.0 / needed * 1.2);
}

void tst_TextFit::theLastRoundTakesTheFullRatio()
{
    // One line that no width breaks: each round halves the way to the full ratio, so that after nine the
    // text would still be too high by a little.
    const QFont font("Arial", 40);
    const QSizeF box(1000, 24);
    const int lineHeight =
        QFontMetrics(font).boundingRect(QRect(0, 0, 990, 20), Qt::TextWordWrap, "8").height();
    double scale = 1.0;
    for (int i = 0; i < 10; ++i) {
        const int available = int(20 / scale);
        if (lineHeight <= available)
            break;
        const double full = scale * available / lineHeight;
        scale = i < 9 ? (full + scale) / 2 : full;
    }
    QCOMPARE(textFitScale("8", font, box), scale);
    QVERIFY(lineHeight * scale <= 20.5);
}

void tst_TextFit::anEmptyTextAsksForNothing()
{
    QCOMPARE(textFitScale(QString(), QFont("Arial", 9), QSizeF(170, 33)), 1.0);
}

void tst_TextFit::aBoxWithoutRoomLeavesTheTextAsItIs()
{
    QCOMPARE(textFitScale(longText, QFont("Arial", 9), QSizeF(-1, -1)), 1.0);
    QCOMPARE(textFitScale(longText, QFont("Arial", 9), QSizeF(100, 4)), 1.0);
    QCOMPARE(textFitScale(longText, QFont("Arial", 9), QSizeF(10, 100)), 1.0);
}

void tst_TextFit::theScaleNeverReachesZero()
{
    const double scale = textFitScale(longText, QFont("Arial", 9), QSizeF(12, 4.001));
    QVERIFY(scale > 0.0 && scale < 1.0);
}

KELMAR_TEST_MAIN(tst_TextFit)
#include "tst_textfit.moc"
