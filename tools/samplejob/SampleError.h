#pragma once

#include <QString>

#include <stdexcept>

/// What is wrong with the contents of the sample documents.
class SampleError : public std::runtime_error
{
public:
    explicit SampleError(const QString &text) : std::runtime_error(text.toStdString()) {}
};
