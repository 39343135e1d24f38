#pragma once

#include <cstdint>

/// Numbers without order that are the same in every run, so that every run measures the same input.
class RandomNumbers
{
public:
    /// A number from 0 up to, not including, `limit`.
    int below(int limit)
    {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<int>((m_state >> 33) % static_cast<std::uint64_t>(limit));
    }

private:
    std::uint64_t m_state = 20220501;
};
