#pragma once

#include "report/file/ReportFile.h"

#include <QString>

class QGraphicsScene;

/// The entries of a report file for the items of a scene: the XML, whole for every item, followed by the
/// images.
ReportFileEntries writeReport(const QGraphicsScene &scene, const QString &resPak);
