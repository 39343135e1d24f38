#pragma once

#include <QString>

/// A program that only starts and ends in the place of the datalogger.
namespace DummyDatalogger {

/// Puts it there, to behave as `variable`, one of those that dummy_datalogger.cpp names, has it.
void place(const char *variable = nullptr, const QString &value = QStringLiteral("3"));
/// Takes whatever is there away.
void remove();
/// What the datalogger's file is called.
QString name();

} // namespace DummyDatalogger
