#pragma once

#include <QString>

class ResourceFolder;

/// Builds the databases whose schemas lie as SQL in the folder `sources`: the pristine curve file, embedded
/// for every language, and the catalogue of modules, which is installed as a file.
void buildDatabases(const QString &sources, ResourceFolder &target);
