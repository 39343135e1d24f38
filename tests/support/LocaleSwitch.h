#pragma once

#include <QLocale>

/// Makes another locale the default one for the life of the object.
class LocaleSwitch
{
public:
    explicit LocaleSwitch(const QString &name) { QLocale::setDefault(QLocale(name)); }
    ~LocaleSwitch() { QLocale::setDefault(m_before); }
    LocaleSwitch(const LocaleSwitch &) = delete;
    LocaleSwitch &operator=(const LocaleSwitch &) = delete;

private:
    QLocale m_before;
};
