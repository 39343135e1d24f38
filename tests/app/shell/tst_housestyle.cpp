#include "app/shell/HouseStyle.h"
#include "res/Resources.h"
#include "tests/support/TestMain.h"

#include <QDialogButtonBox>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

/// The cross of a tab as it is drawn with these colours.
QImage cross(QStyle &style, const QPalette &palette, QStyle::State state)
{
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QStyleOption option;
    option.rect = image.rect();
    option.palette = palette;
    option.state = state;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorTabClose, &option, &painter);
    return image;
}

int inkOf(const QImage &image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink += qAlpha(image.pixel(x, y));
    }
    return ink;
}

/// A style that a desktop brings.
class DesktopStyle : public QProxyStyle
{
public:
    DesktopStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
        setObjectName(QStringLiteral("desktop"));
    }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace

class TestHouseStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QApplication::setStyle(new HouseStyle);
    }
    void buttonsOfDialogsShowWordsAlone();
    void boxesShowTheSignOfTheirKind_data();
    void boxesShowTheSignOfTheirKind();
    void theCrossOfATabHasTheColourOfItsText();
    void theCrossOfATabComesOutUnderThePointer();
    void menusShowTheLinesBetweenTheirGroupsAtEveryScale_data();
    void menusShowTheLinesBetweenTheirGroupsAtEveryScale();
    void aDesktopsStyleIsLeftAsItIs();
};

void TestHouseStyle::buttonsOfDialogsShowWordsAlone()
{
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    for (const QAbstractButton *button : box.buttons())
        QVERIFY(button->icon().isNull());
}

void TestHouseStyle::boxesShowTheSignOfTheirKind_data()
{
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::addColumn<QString>("sign");
    QTest::newRow("information") << QMessageBox::Information << "information";
    QTest::newRow("question") << QMessageBox::Question << "question";
    QTest::newRow("warning") << QMessageBox::Warning << "warning";
    QTest::newRow("critical") << QMessageBox::Critical << "critical";
}

void TestHouseStyle::boxesShowTheSignOfTheirKind()
{
    QFETCH(QMessageBox::Icon, icon);
    QFETCH(QString, sign);
    const QMessageBox box(icon, "Kelmar", "Something happened");
    const QSize size = box.iconPixmap().size();
    QVERIFY(!size.isEmpty());
    QCOMPARE(box.iconPixmap().toImage(), QIcon(":/res/images/box_" + sign + ".png").pixmap(size).toImage());
}

void TestHouseStyle::theCrossOfATabHasTheColourOfItsText()
{
    QPalette palette;
    for (const QColor &colour : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::red)}) {
        palette.setColor(QPalette::WindowText, colour);
        const QColor middle =
            cross(*QApplication::style(), palette, QStyle::State_Enabled).pixelColor(10, 10);
        QVERIFY(middle.alpha() > 60);
        QCOMPARE(QColor(middle.rgb()), colour);
    }
}

void TestHouseStyle::theCrossOfATabComesOutUnderThePointer()
{
    QStyle &style = *QApplication::style();
    const int atRest = inkOf(cross(style, QPalette(), QStyle::State_Enabled));
    const int hovered = inkOf(cross(style, QPalette(), QStyle::State_Enabled | QStyle::State_MouseOver));
    QVERIFY2(hovered > atRest * 3 / 2, qPrintable(QString("%1, %2").arg(atRest).arg(hovered)));
}

void TestHouseStyle::menusShowTheLinesBetweenTheirGroupsAtEveryScale_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.04, 1.25, 1.5, 1.75, 2.0})
        QTest::newRow(qPrintable(QString::number(scale))) << scale;
}

void TestHouseStyle::menusShowTheLinesBetweenTheirGroupsAtEveryScale()
{
    QFETCH(double, scale);
    constexpr int groups = 8;
    QMenu menu;
    for (int i = 0; i < groups; ++i) {
        menu.addAction(QString(i % 3, 'x'));
        menu.addSeparator();
    }
    menu.addAction(QString());
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    QImage image((QSizeF(menu.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    menu.render(&image);
    int lines = 0;
    bool wasLine = false;
    for (int y = 3; y < image.height() - 3; ++y) {
        const bool isLine = qGray(image.pixel(image.width() * 3 / 4, y)) < 220;
        lines += isLine && !wasLine;
        wasLine = isLine;
    }
    QCOMPARE(lines, groups);
}

void TestHouseStyle::aDesktopsStyleIsLeftAsItIs()
{
    HouseStyle style;
    style.setBaseStyle(new DesktopStyle);
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, nullptr, nullptr), 1);
    QVERIFY(cross(style, QPalette(), QStyle::State_Enabled) !=
            cross(*QApplication::style(), QPalette(), QStyle::State_Enabled));
    const DesktopStyle desktop;
    const QSize size(48, 48);
    QCOMPARE(style.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).pixmap(size).toImage(),
             desktop.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).pixmap(size).toImage());
}

KELMAR_TEST_MAIN(TestHouseStyle)
#include "tst_housestyle.moc"
