#pragma once

#include <random>

namespace Bench {

/// Numbers that are the same at every run and with every standard library.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    /// A number from 0 to @p limit - 1.
    int below(int limit) { return int(m_engine() % unsigned(limit)); }
    bool chance(int percent) { return below(100) < percent; }

private:
    std::mt19937 m_engine;
};

} // namespace Bench
