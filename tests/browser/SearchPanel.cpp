#include "tests/browser/SearchPanel.h"

#include "app/core/Folders.h"
#include "tests/report/ReportSample.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

void SearchPanel::clear()
{
    TestHome::instance()->reset();
    QVERIFY(QDir().mkpath(TestHome::instance()->projectsRoot()));
    Folders::instance(true);
}

QString SearchPanel::path(const QString &relative)
{
    return TestHome::instance()->projectsRoot() + '/' + relative;
}

QString SearchPanel::add(const QString &relative, const QByteArray &bytes)
{
    writeFile(path(relative), bytes);
    return path(relative);
}

QString SearchPanel::addReport(const QString &relative, const QString &text)
{
    const QByteArray xml = "<document>\n <page>\n  <text id=\"remarks\">" + text.toHtmlEscaped().toUtf8() +
                           "</text>\n </page>\n</document>\n";
    return add(relative, ReportSample::pack(xml));
}

SearchPanel::SearchPanel()
{
    resize(250, 600);
    show();
    QVERIFY(QTest::qWaitForWindowExposed(this, patience));
}

QPushButton *SearchPanel::searchButton() const
{
    return find<QPushButton>("search");
}

QPushButton *SearchPanel::stopButton() const
{
    return find<QPushButton>("stop");
}

void SearchPanel::check(const char *group, bool on) const
{
    find<QGroupBox>(group)->setChecked(on);
}

void SearchPanel::setName(const QString &text, bool caseSensitive) const
{
    check("fileGroup");
    find<QLineEdit>("nameEdit")->setText(text);
    find<QCheckBox>("nameCaseSensitive")->setChecked(caseSensitive);
}

void SearchPanel::setPhrase(const QString &text, bool caseSensitive) const
{
    check("phraseGroup");
    find<QLineEdit>("phraseEdit")->setText(text);
    find<QCheckBox>("phraseCaseSensitive")->setChecked(caseSensitive);
}

void SearchPanel::setDates(int kind, const QDate &from, const QDate &to) const
{
    check("dateGroup");
    find<QComboBox>("dateKind")->setCurrentIndex(kind);
    find<QDateEdit>("dateFrom")->setDate(from);
    find<QDateEdit>("dateTo")->setDate(to);
}

void SearchPanel::setSize(int kind, int kilobytes) const
{
    check("sizeGroup");
    find<QComboBox>("sizeKind")->setCurrentIndex(kind);
    find<QSpinBox>("sizeLimit")->setValue(kilobytes);
}

QStringList SearchPanel::found()
{
    QTest::mouseClick(searchButton(), Qt::LeftButton);
    QStringList names = rows();
    names.sort();
    return names;
}

QStringList SearchPanel::rows() const
{
    QStringList names;
    for (int row = 0; row < model()->rowCount(); ++row)
        names.append(model()->index(row, FoundFilesModel::NameColumn).data().toString());
    return names;
}
