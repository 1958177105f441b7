#pragma once

#include <functional>
#include <random>
#include <utility>

namespace Testing {

/// Decides what a random scene or sheet looks like.
class Dice {
public:
    /// Answers 0 to @p sides - 1.
    using Source = std::function<int(int sides)>;

    /// Random numbers that are the same on every platform.
    explicit Dice(unsigned seed)
        : Dice([engine = std::mt19937(seed)](int sides) mutable { return int(engine() % unsigned(sides)); }) {}
    explicit Dice(Source source) : m_source(std::move(source)) {}

    /// 0 to @p sides - 1.
    int roll(int sides) { return m_source(sides); }
    bool chance(int percent) { return roll(100) < percent; }

private:
    Source m_source;
};

} // namespace Testing
