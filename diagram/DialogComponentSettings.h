#pragma once

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class DialogComponentSettings;
}

/// Asks for the text of a caption.
class DialogComponentSettings : public QDialog
{
    Q_OBJECT

public:
    explicit DialogComponentSettings(const QString &text, QWidget *parent = nullptr);
    ~DialogComponentSettings() override;

    QString text() const;

    /// Asks over the main window, starting with `text`. Nothing when the user cancels.
    static std::optional<QString> ask(const QString &text);

private:
    std::unique_ptr<Ui::DialogComponentSettings> m_ui;
};
