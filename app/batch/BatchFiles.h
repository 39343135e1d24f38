#pragma once

class QString;

/// Tells why something is not done; always false.
bool refuse(const QString &text);

/// May this file be written? Tells why not.
bool isFree(const QString &path, bool force);

/// Is the output no input? Not even --force may cost the user what is being read.
bool isApart(const QString &output, const QString &input);

/// Is this a file that can be read? Tells if not.
bool isReadableFile(const QString &path);
