#pragma once

#include "browser/FindInFiles.h"
#include "browser/FoundFilesModel.h"

#include <QStringList>

class QComboBox;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// The search panel on the screen over a projects root of its own, with hands for its widgets.
class SearchPanel : public FindInFiles
{
    Q_OBJECT

public:
    /// A clean home and an empty projects root.
    static void clear();
    /// Writes a file below the projects root.
    static QString add(const QString &relative, const QByteArray &bytes = "x");
    /// Writes a report with this text in it.
    static QString addReport(const QString &relative, const QString &text);
    static QString path(const QString &relative);

    SearchPanel();

    template <typename Widget> Widget *find(const char *name) const
    {
        return findChild<Widget *>(QLatin1String(name));
    }
    QPushButton *searchButton() const;
    QPushButton *stopButton() const;

    void check(const char *group, bool on = true) const;
    void setName(const QString &text, bool caseSensitive = false) const;
    void setPhrase(const QString &text, bool caseSensitive = false) const;
    void setDates(int kind, const QDate &from, const QDate &to) const;
    void setSize(int kind, int kilobytes) const;

    /// Clicks Search, and returns what stands in the first column when the search is over, sorted.
    QStringList found();
    /// The first column, as it stands.
    QStringList rows() const;
};
