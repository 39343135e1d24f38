#pragma once

class QString;
class ResourceFolder;

/// Stores the HTML templates of a folder in every language that there are forms for, each text between tags
/// as the language's table of words has it. A text without a translation stops the build.
void buildHtmlTemplates(const QString &sources, ResourceFolder &target);
