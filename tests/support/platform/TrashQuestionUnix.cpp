#include "tests/support/BoxWatcher.h"
#include "tests/support/TrashQuestion.h"

class TrashQuestion::Asked
{
public:
    explicit Asked(const BoxWatcher &watcher) : m_watcher(watcher), m_before(watcher.boxes().size()) {}
    int times() const { return m_watcher.boxes().size() - m_before; }

private:
    const BoxWatcher &m_watcher;
    int m_before;
};

TrashQuestion::TrashQuestion(BoxWatcher &watcher, const QString &part)
    : m_asked(std::make_unique<Asked>(watcher))
{
    watcher.expect(part, QMessageBox::Yes);
}

TrashQuestion::~TrashQuestion() = default;

int TrashQuestion::timesAsked() const
{
    return m_asked->times();
}
