#pragma once

#include "curve/data/StringRecord.h"
#include "curve/ui/CurveDetailsDialog.h"

#include <QtTest>
#include <QtWidgets>

/// A number as the session's locale writes it.
QString shownNumber(double value);

/// A string of 3 modules in series and 2 in parallel, with a reading of each kind.
IVCurve::StringRecord sampleString(unsigned module);
IVCurve::StringRecord sampleString();

/// A dialog about a copy of its own, as a test's user sees it.
class Details
{
public:
    explicit Details(const IVCurve::StringRecord &string = sampleString()) : record(string), dialog(&record)
    {
        QObject::connect(&dialog, &QDialog::finished, &dialog, [this](int how) { result = how; });
        dialog.show();
    }

    template <typename Widget = QLineEdit> Widget *at(const char *name) const
    {
        auto *found = dialog.findChild<Widget *>(QLatin1String(name));
        if (!found)
            qFatal("no widget %s", name);
        return found;
    }
    QString text(const char *name) const { return at(name)->text(); }
    QString label(const char *name) const { return at<QLabel>(name)->text(); }
    double value(const char *name) const { return at<QDoubleSpinBox>(name)->value(); }
    QComboBox *modules() const { return at<QComboBox>("comboModule"); }
    QStringList moduleNames() const
    {
        QStringList names;
        for (int i = 0; i < modules()->count(); ++i)
            names.append(modules()->itemText(i));
        return names;
    }
    QString page() const { return at<QStackedWidget>("stackSTCPages")->currentWidget()->objectName(); }
    QPushButton *button(QDialogButtonBox::StandardButton which) const
    {
        return at<QDialogButtonBox>("buttonBox")->button(which);
    }
    void show(const char *tab) const { at<QTabWidget>("tabWidget")->setCurrentWidget(at<QWidget>(tab)); }
    void type(const char *name, const QString &text) const
    {
        at(name)->selectAll();
        QTest::keyClicks(at(name), text);
    }
    void count(const char *name, int number) const { at<QSpinBox>(name)->setValue(number); }
    void choose(const QString &module) const { modules()->setCurrentIndex(modules()->findText(module)); }
    void pressOk() const { QTest::mouseClick(button(QDialogButtonBox::Ok), Qt::LeftButton); }
    void press(const char *button) const
    {
        show("tabModule");
        QTest::mouseClick(at<QPushButton>(button), Qt::LeftButton);
    }
    /// A radio button takes the mouse where its mark and its text are.
    void pressRadio(const char *name) const
    {
        auto *radio = at<QRadioButton>(name);
        QTest::mouseClick(radio, Qt::LeftButton, Qt::NoModifier, QPoint(8, radio->height() / 2));
    }
    /// Ok in a session in which the warning is hidden.
    void pressOkSilently() const
    {
        QSettings().setValue("Curves/HideAutomaticSaveWarning", true);
        pressOk();
        QCOMPARE(result, int(QDialog::Accepted));
    }

    IVCurve::StringRecord record;
    IVCurve::CurveDetailsDialog dialog;
    int result = -1;
};
