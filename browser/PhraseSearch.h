#pragma once

#include <QString>

/// True if a run of text in the report at `path` matches the wildcard expression `phrase`. Only inspection
/// reports, array test reports and verification certificates are looked into, and of those only the user's
/// values, not the pictures. A report that cannot be read matches nothing.
bool fileContainsPhrase(const QString &phrase, Qt::CaseSensitivity cs, const QString &path);
