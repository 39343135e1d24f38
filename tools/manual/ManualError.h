#pragma once

#include <QString>

#include <stdexcept>

/// What is wrong with the manual's source, in words for the one who writes it.
class ManualError : public std::runtime_error
{
public:
    explicit ManualError(const QString &text) : std::runtime_error(text.toStdString()) {}
};
