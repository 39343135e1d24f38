#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <ctime>

/// Measures how long the event loop of the thread that makes it is away: nested loops count as the loop.
/// A gap is judged by the processor time spent in it, so that a busy machine makes none.
class HangWatch : public QObject
{
    Q_OBJECT

public:
    HangWatch();

    /// The longest gap so far, in seconds of the clock.
    double longest() const { return m_longest; }
    /// The longest gap so far, in seconds of processor time of the whole process.
    double longestBusy() const { return m_longestBusy; }

private:
    void beat();

    QTimer m_timer;
    std::chrono::steady_clock::time_point m_last;
    std::clock_t m_lastBusy;
    double m_longest = 0;
    double m_longestBusy = 0;
};
