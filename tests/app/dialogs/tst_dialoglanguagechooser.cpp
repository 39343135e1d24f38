#include "app/dialogs/DialogLanguageChooser.h"
#include "tests/support/TestMain.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>

class TestDialogLanguageChooser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void titleAsksForALanguage();
    void cataloguesOfTheWorkingDirectoryAreOffered();
    void withoutCataloguesNothingIsOffered();
    void okWithoutTouchingStoresEnglishWhateverTheBoxShows();
    void activatedLanguageIsStored();
    void choiceByKeysCountsToo();
    void languageSetWithoutAnActivationDoesNotCount();
    void cancelStoresEnglish();
    void cancelAfterAChoiceStoresEnglish();
    void closingTheWindowStoresEnglish();

private:
    static void offer(const QStringList &codes);
    static QString stored() { return QSettings().value("locale").toString(); }
    static void click(QDialog &dialog, QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
    }
    static void choose(QComboBox *box, const QString &text)
    {
        box->setCurrentIndex(box->findText(text));
        emit box->activated(box->currentIndex());
    }
};

void TestDialogLanguageChooser::initTestCase()
{
    QVERIFY(QDir::setCurrent(TestHome::instance()->path()));
}

void TestDialogLanguageChooser::init()
{
    TestHome::instance()->reset(true);
    offer({"de", "en", "fr"});
}

void TestDialogLanguageChooser::offer(const QStringList &codes)
{
    QDir("Translations").removeRecursively();
    for (const QString &code : codes)
        writeFile("Translations/kelmar_" + code + ".qm", QByteArray());
    writeFile("Translations/qt_es.qm", QByteArray());
}

void TestDialogLanguageChooser::titleAsksForALanguage()
{
    QCOMPARE(DialogLanguageChooser().windowTitle(), QString("Please Select a Language"));
}

void TestDialogLanguageChooser::cataloguesOfTheWorkingDirectoryAreOffered()
{
    const DialogLanguageChooser dialog;
    const auto *box = dialog.findChild<QComboBox *>();
    QMap<QString, QLocale> offered;
    for (int i = 0; i < box->count(); ++i)
        offered.insert(box->itemText(i), box->itemData(i).toLocale());
    QCOMPARE(offered, (QMap<QString, QLocale>{
                          {"English", QLocale("en")}, {"French", QLocale("fr")}, {"German", QLocale("de")}}));
}

void TestDialogLanguageChooser::withoutCataloguesNothingIsOffered()
{
    offer({});
    DialogLanguageChooser dialog;
    QCOMPARE(dialog.findChild<QComboBox *>()->count(), 0);
    dialog.show();
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(stored(), QLocale("en").name());
}

void TestDialogLanguageChooser::okWithoutTouchingStoresEnglishWhateverTheBoxShows()
{
    offer({"de"});
    DialogLanguageChooser dialog;
    dialog.show();
    QCOMPARE(dialog.findChild<QComboBox *>()->currentText(), QString("German"));
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(stored(), QLocale("en").name());
}

void TestDialogLanguageChooser::activatedLanguageIsStored()
{
    DialogLanguageChooser dialog;
    dialog.show();
    choose(dialog.findChild<QComboBox *>(), "German");
    QVERIFY(stored().isEmpty());
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(stored(), QString("de_DE"));
}

void TestDialogLanguageChooser::choiceByKeysCountsToo()
{
    DialogLanguageChooser dialog;
    dialog.show();
    auto *box = dialog.findChild<QComboBox *>();
    box->setCurrentIndex(0);
    QTest::keyClick(box, Qt::Key_Down);
    const QLocale shown = box->currentData().toLocale();
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(stored(), shown.name());
}

void TestDialogLanguageChooser::languageSetWithoutAnActivationDoesNotCount()
{
    DialogLanguageChooser dialog;
    dialog.show();
    auto *box = dialog.findChild<QComboBox *>();
    box->setCurrentIndex(box->findText("French"));
    click(dialog, QDialogButtonBox::Ok);
    QCOMPARE(stored(), QLocale("en").name());
}

void TestDialogLanguageChooser::cancelStoresEnglish()
{
    DialogLanguageChooser dialog;
    dialog.show();
    click(dialog, QDialogButtonBox::Cancel);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(stored(), QString("en"));
}

void TestDialogLanguageChooser::cancelAfterAChoiceStoresEnglish()
{
    DialogLanguageChooser dialog;
    dialog.show();
    choose(dialog.findChild<QComboBox *>(), "German");
    click(dialog, QDialogButtonBox::Cancel);
    QCOMPARE(stored(), QString("en"));
}

void TestDialogLanguageChooser::closingTheWindowStoresEnglish()
{
    DialogLanguageChooser dialog;
    dialog.show();
    dialog.close();
    QCOMPARE(stored(), QString("en"));
}

KELMAR_TEST_MAIN(TestDialogLanguageChooser)
#include "tst_dialoglanguagechooser.moc"
