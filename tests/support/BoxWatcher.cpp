#include "tests/support/BoxWatcher.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

/// All that are alive: the youngest has the say.
QVector<const BoxWatcher *> watchers;

void fail(const QString &what)
{
    QTest::qFail(qPrintable(what), __FILE__, __LINE__);
}

} // namespace

BoxWatcher::BoxWatcher(QObject *parent) : QObject(parent)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    connect(&m_timer, &QTimer::timeout, this, &BoxWatcher::look);
    m_timer.start(5);
    watchers.append(this);
}

BoxWatcher::~BoxWatcher()
{
    watchers.removeAll(this);
    for (const Rule &rule : qAsConst(m_rules))
        fail(QStringLiteral("never shown: %1")
                 .arg(rule.className ? QLatin1String(rule.className) : rule.part));
}

void BoxWatcher::expect(const QString &part, QMessageBox::StandardButton button, bool check)
{
    Rule rule;
    rule.part = part;
    rule.button = button;
    rule.check = check;
    m_rules.append(rule);
}

void BoxWatcher::expectUnticking(const QString &part, QMessageBox::StandardButton button)
{
    expect(part, button);
    m_rules.last().uncheck = true;
}

void BoxWatcher::expectAndLook(const QString &part, QMessageBox::StandardButton button,
                               const std::function<void(QWidget *)> &look)
{
    expect(part, button);
    m_rules.last().act = look;
}

void BoxWatcher::expectFileDialog(const QString &path)
{
    Rule rule;
    rule.part = path;
    rule.isFileDialog = true;
    m_rules.append(rule);
}

void BoxWatcher::expectDialog(const char *className, const std::function<void(QWidget *)> &act)
{
    Rule rule;
    rule.className = className;
    rule.act = act;
    m_rules.append(rule);
}

QStringList BoxWatcher::texts() const
{
    QStringList all;
    for (const Box &box : m_boxes)
        all.append(box.text);
    return all;
}

void BoxWatcher::clear()
{
    m_boxes.clear();
    m_fileDialogs.clear();
}

void BoxWatcher::look()
{
    QWidget *widget = QApplication::activeModalWidget();
    if (watchers.constLast() != this || !widget || !widget->isVisible() || widget == m_handled)
        return;
    QWidget *const below = m_handled;
    m_handled = widget;
    // A timer does not go off again while it is being answered: with a new one a box that comes up over this
    // dialog is seen, too.
    m_timer.start();
    if (auto *box = qobject_cast<QMessageBox *>(widget)) {
        m_look(box);
        answer(box);
    } else if (auto *dialog = qobject_cast<QFileDialog *>(widget)) {
        m_look(dialog);
        answer(dialog);
    } else {
        answerOther(widget);
    }
    // The dialog below is still being looked at when this one has gone.
    m_handled = below;
}

void BoxWatcher::answer(QMessageBox *box)
{
    Box seen;
    seen.title = box->windowTitle();
    seen.text = box->text();
    seen.informativeText = box->informativeText();
    seen.icon = box->icon();
    seen.buttons = box->standardButtons();
    seen.defaultButton = box->standardButton(box->defaultButton());
    seen.checkBoxText = box->checkBox() ? box->checkBox()->text() : QString();
    seen.parent = box->parentWidget();
    m_boxes.append(seen);

    for (int i = 0; i < m_rules.size(); ++i) {
        const Rule rule = m_rules.at(i);
        if (rule.isFileDialog || rule.className || !seen.text.contains(rule.part))
            continue;
        m_rules.remove(i);
        if (rule.act)
            rule.act(box);
        if (rule.check && box->checkBox())
            box->checkBox()->setChecked(true);
        if (rule.uncheck && box->checkBox())
            box->checkBox()->setChecked(false);
        QAbstractButton *button = box->button(rule.button);
        if (button) {
            QTest::mouseClick(button, Qt::LeftButton);
            // A box that loses the keyboard at that very moment lets go of the button: press it once more.
            if (box->isVisible())
                button->click();
        } else {
            fail(QStringLiteral("no such button in: ") + seen.text);
            box->reject();
        }
        return;
    }
    fail(QStringLiteral("unexpected message: ") + seen.text);
    box->done(int(QMessageBox::Cancel));
}

void BoxWatcher::answer(QFileDialog *dialog)
{
    const QStringList selected = dialog->selectedFiles();
    m_fileDialogs.append({dialog->windowTitle(),
                          selected.isEmpty() ? dialog->directory().path() : selected.first(),
                          dialog->nameFilters().join(QStringLiteral(";;"))});
    for (int i = 0; i < m_rules.size(); ++i) {
        const Rule rule = m_rules.at(i);
        if (!rule.isFileDialog)
            continue;
        m_rules.remove(i);
        if (rule.part.isEmpty()) {
            dialog->reject();
            return;
        }
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(rule.part);
        QTest::keyClick(edit, Qt::Key_Return);
        return;
    }
    fail(QStringLiteral("unexpected file dialog: ") + dialog->windowTitle());
    dialog->reject();
}

void BoxWatcher::answerOther(QWidget *dialog)
{
    for (int i = 0; i < m_rules.size(); ++i) {
        const Rule rule = m_rules.at(i);
        if (!rule.className || !dialog->inherits(rule.className))
            continue;
        m_rules.remove(i);
        rule.act(dialog);
        return;
    }
    fail(QStringLiteral("unexpected dialog: ") + QString::fromLatin1(dialog->metaObject()->className()));
    dialog->close();
}
