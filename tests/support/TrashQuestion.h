#pragma once

#include <QString>

#include <memory>

class BoxWatcher;

/// Says Yes to the next question whether something is to go to the trash: the program's own, which must hold
/// `part`, or the system's where the system asks. Nobody asking fails the test where the program does.
class TrashQuestion
{
public:
    TrashQuestion(BoxWatcher &watcher, const QString &part);
    ~TrashQuestion();
    TrashQuestion(const TrashQuestion &) = delete;
    TrashQuestion &operator=(const TrashQuestion &) = delete;

    /// How often was asked until now?
    int timesAsked() const;

private:
    class Asked;
    std::unique_ptr<Asked> m_asked;
};
