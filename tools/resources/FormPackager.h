#pragma once

#include <QString>

class ResourceFolder;

/// Packs the forms below `forms` in every language there are labels for: a template package of each revision
/// and the pristine report. `artwork` holds the backgrounds and images that the forms name; they go to the
/// same resource folders, as do the files default.* beside the forms.
void packForms(const QString &forms, const QString &artwork, ResourceFolder &target);
