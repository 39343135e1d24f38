#pragma once

#include <QDateTime>
#include <QString>

class QProcess;
class QWidget;

/// The hand-over from the external datalogger, a program that fetches the tester's results and saves
/// them as a file. It is known only by its exit and by the file that its own settings store names.
namespace Datalogger {

/// Where the datalogger stands: beside the program.
QString programPath();

/// Starts it without waiting. Shows a message over `parent` and returns false when it is missing.
bool start(QProcess *process, QWidget *parent);

/// The message for a datalogger that could not be started.
void showStartFailure(QWidget *parent);

/// The file that the datalogger saved after `started`; empty when there is none.
QString fileSavedSince(const QDateTime &started);

/// Asks whether to import a file, telling its path and age.
bool askToImport(const QString &path, QWidget *parent);

/// How long ago `modified` is, in the largest whole unit.
QString ageText(const QDateTime &modified, const QDateTime &now);

} // namespace Datalogger
