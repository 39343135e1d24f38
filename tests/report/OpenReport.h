#pragma once

#include "report/ReportScene.h"

#include <QGraphicsView>
#include <QUndoStack>

/// A report's scene with its stack, as a document makes them.
struct OpenReport
{
    QUndoStack stack;
    ReportScene scene{&stack};
};

/// Where a test's report file of this name lies.
QString reportPath(const QString &name = QStringLiteral("report.kelatr"));
/// Writes a report file and returns its path.
QString reportFile(const QByteArray &bytes, const QString &name = QStringLiteral("report.kelatr"));

/// A view of a report that is on the screen and has the keyboard.
class KeyboardView : public QGraphicsView
{
public:
    explicit KeyboardView(OpenReport &report);
};
