#pragma once

#include <QString>

class ResourceFolder;

/// Draws the icons that a desktop shows for the program and its documents from the artwork below `source`,
/// in all sizes of a theme, and stores them as the folders of the theme "hicolor".
void buildDesktopIcons(const QString &source, ResourceFolder &target);
