#pragma once

#include "app/core/Messages.h"

#include <QModelIndexList>

/// What became of rows that were to go into a report. The values are stable.
enum ImportStatus
{
    Imported = 0,
    InvalidRow = 1,
    NowhereToInsert = 2,
    NoRoom = 3
};

/// What to tell the user about rows that did not get into the document at `documentPath`.
Message importStatusMessage(int status, const QString &documentPath, const QModelIndexList &indexes);
