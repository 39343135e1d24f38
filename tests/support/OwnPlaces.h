#pragma once

#include <QString>

/// For the life of the object, this process and those that it starts have settings apart from the user's.
/// Where there is a registry the user's are set aside meanwhile, so that one test program can run at a time;
/// elsewhere settings, home and trash are below `folder`.
class OwnPlaces
{
public:
    explicit OwnPlaces(const QString &folder);
    ~OwnPlaces();
    OwnPlaces(const OwnPlaces &) = delete;
    OwnPlaces &operator=(const OwnPlaces &) = delete;
};
