#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

namespace Bench {

/// A counter that is reported per second; @p amount is what one iteration does.
inline benchmark::Counter perSecond(double amount) {
    return benchmark::Counter(amount, benchmark::Counter::kIsIterationInvariantRate);
}

/// A counter that is reported as time per piece, in the unit of @p unitSeconds; one iteration does @p pieces.
inline benchmark::Counter timePer(double pieces, double unitSeconds) {
    return benchmark::Counter(pieces * unitSeconds,
                              benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

inline constexpr double nanoseconds = 1e-9;
inline constexpr double microseconds = 1e-6;

/// Processor time of this program so far, in seconds.
inline double processorTime() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * nanoseconds;
}

} // namespace Bench
