#pragma once

#include <QByteArray>
#include <QString>

/// A file in the resources for the life of the object, made at run time. Path as ":res/test/name.pak".
class TestResource
{
public:
    TestResource(const QString &path, const QByteArray &content);
    ~TestResource();
    TestResource(const TestResource &) = delete;
    TestResource &operator=(const TestResource &) = delete;

private:
    QByteArray m_collection;
    bool m_registered = false;
};
