#pragma once

#include <QDate>
#include <QStringList>

/// The jobs of an installer whose windows the manual shows, in the manual's two languages.
class ManualJob
{
public:
    /// The language that the environment variable KELMAR_MANUAL_LANGUAGE names, else English.
    ManualJob();

    bool isGerman() const { return m_german; }
    QString word(const char *english, const char *german) const;

    /// The projects root: the folder that KELMAR_MANUAL_ROOT names, else one in the test's home.
    QString root() const { return m_root; }
    QString folder() const;
    QString path(const QString &name) const { return folder() + QLatin1Char('/') + name; }
    QString resultsFile() const { return path(word("Roof south.csv", "Dach Süd.csv")); }
    QString report() const { return path(word("Roof south.kelatr", "Dach Süd.kelatr")); }
    QString inspection() const
    {
        return path(word("Inspection Report.kelir", "Prüfbericht Besichtigung.kelir"));
    }
    QString curves() const { return path(word("Roof south.kelcrv", "Dach Süd.kelcrv")); }
    QString diagram() const { return path(word("Roof south.kelid", "Dach Süd.kelid")); }

    /// A picture of the roof, beside the jobs.
    QString photo() const;
    /// The job's file of each form: inspection report, array test report, certificate, checklist.
    QStringList forms() const;

    /// Empties the home and lays out the tree of jobs, the sample among them; the settings are those of a
    /// user at work.
    void prepare() const;
    /// Makes a form of the job an empty one.
    void empty(const QString &form) const;
    /// The day of the job.
    static QDate day() { return {2016, 5, 12}; }
    /// Makes a file one of that day.
    static void setDate(const QString &file);
    /// Takes away what a first start asks for.
    void forgetSettings() const;

private:
    void copySample() const;

    bool m_german;
    QString m_root;
};
