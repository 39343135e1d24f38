#pragma once

class QDomElement;

/// Numbers in attributes. What is no number, not finite or beyond a million either way counts as absent:
/// no page and no drawing is that large, and coordinates out of all bounds bring down what draws and scrolls them.

double doubleAttribute(const QDomElement &element, const char *name, double fallback);
int intAttribute(const QDomElement &element, const char *name, int fallback);

/// Writes the shortest text that reads back as the same number, in any locale.
void setDoubleAttribute(QDomElement &element, const char *name, double value);
