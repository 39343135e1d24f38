#include "tests/whole/HangWatch.h"

#include <algorithm>

HangWatch::HangWatch() : m_last(std::chrono::steady_clock::now()), m_lastBusy(std::clock())
{
    connect(&m_timer, &QTimer::timeout, this, &HangWatch::beat);
    m_timer.start(20);
}

void HangWatch::beat()
{
    const auto now = std::chrono::steady_clock::now();
    const std::clock_t busy = std::clock();
    m_longest = std::max(m_longest, std::chrono::duration<double>(now - m_last).count());
    m_longestBusy = std::max(m_longestBusy, double(busy - m_lastBusy) / CLOCKS_PER_SEC);
    m_last = now;
    m_lastBusy = busy;
}
