#pragma once

#include <QMessageBox>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <functional>

class QFileDialog;

/// Watches for the message boxes that the program shows, records each and clicks a button by rule. A
/// box that no rule covers is dismissed and fails the test. Rules are used up in the order of adding.
/// File dialogs (the toolkit's own) are answered by rule too. While another watcher is alive that was made
/// later, that one watches alone.
class BoxWatcher : public QObject
{
    Q_OBJECT

public:
    struct Box
    {
        QString title;
        QString text;
        QString informativeText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons = QMessageBox::NoButton;
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
        QString checkBoxText;
        QWidget *parent = nullptr;
    };

    explicit BoxWatcher(QObject *parent = nullptr);
    /// Fails the test when a rule was never used.
    ~BoxWatcher() override;

    /// The next box whose text contains `part` gets `button`, with its check box ticked if `check`.
    void expect(const QString &part, QMessageBox::StandardButton button, bool check = false);
    /// The same for a box whose check box is to be cleared first.
    void expectUnticking(const QString &part, QMessageBox::StandardButton button);
    /// The same, with a look at the box before its button is pressed.
    void expectAndLook(const QString &part, QMessageBox::StandardButton button,
                       const std::function<void(QWidget *)> &look);
    /// The next file dialog gets this path, or is cancelled when the path is empty. Needs the toolkit's own
    /// dialogs (Qt::AA_DontUseNativeDialogs).
    void expectFileDialog(const QString &path);
    /// Calls `act` with the next modal dialog of class `className`, which must close it.
    void expectDialog(const char *className, const std::function<void(QWidget *)> &act);
    /// Calls `look` with every message box and file dialog before it is answered.
    void lookAtEach(const std::function<void(QWidget *)> &look) { m_look = look; }

    const QVector<Box> &boxes() const { return m_boxes; }
    /// File dialogs seen: window title, shown directory or selected file, filters.
    const QVector<QStringList> &fileDialogs() const { return m_fileDialogs; }
    /// The texts of all boxes seen so far.
    QStringList texts() const;
    void clear();

private:
    struct Rule
    {
        QString part;
        QMessageBox::StandardButton button = QMessageBox::NoButton;
        bool check = false;
        bool uncheck = false;
        const char *className = nullptr;
        std::function<void(QWidget *)> act;
        bool isFileDialog = false;
    };

    void look();
    void answer(QMessageBox *box);
    void answer(QFileDialog *dialog);
    void answerOther(QWidget *dialog);

    QTimer m_timer;
    QVector<Rule> m_rules;
    QVector<Box> m_boxes;
    QVector<QStringList> m_fileDialogs;
    QWidget *m_handled = nullptr;
    std::function<void(QWidget *)> m_look = [](QWidget *) {};
};
