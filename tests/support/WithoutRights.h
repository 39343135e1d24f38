#pragma once

/// Takes the superuser's rights from this process's access to files for the life of the object, if it has
/// them: what is read-only or locked is so for the test, too.
class WithoutRights
{
public:
    WithoutRights();
    ~WithoutRights();
    WithoutRights(const WithoutRights &) = delete;
    WithoutRights &operator=(const WithoutRights &) = delete;
};
