#pragma once

#include <QDialog>
#include <QLocale>

#include <memory>

namespace Ui {
class DialogLanguageChooser;
}

/// Asks for the language at the first start. Whatever way it is closed, a language is stored then.
class DialogLanguageChooser : public QDialog
{
    Q_OBJECT

public:
    explicit DialogLanguageChooser(QWidget *parent = nullptr);
    ~DialogLanguageChooser() override;

public slots:
    void accept() override;
    void reject() override;

private slots:
    void setLocale(int index);

private:
    std::unique_ptr<Ui::DialogLanguageChooser> m_ui;
    /// Follows only what the user activates, not what the box shows first.
    QLocale m_locale{QStringLiteral("en")};
};
