#pragma once

#include <cstdint>

/// Numbers below a bound, the same in every run, from a few instructions and no memory.
class RandomPlaces
{
public:
    explicit RandomPlaces(std::uint32_t bound) : m_bound(bound) {}

    std::uint32_t next()
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return static_cast<std::uint32_t>(((m_state >> 32) * m_bound) >> 32);
    }

private:
    std::uint64_t m_state = 88172645463325252u;
    std::uint32_t m_bound;
};
