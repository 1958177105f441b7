#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

namespace Bench {

/// Processor time of this program so far, in seconds. The time of a program that waits does not count.
inline double processorTime() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// Seconds that @p work takes.
template <typename Work>
double secondsOf(Work work) {
    const double start = processorTime();
    work();
    return processorTime() - start;
}

inline double median(std::vector<double> samples) {
    const auto middle = samples.begin() + std::ptrdiff_t(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

/// The median of what @p sample answers. It is called until it has measured a fifth of a second in all, and at least
/// three times unless each takes long; what it does besides measuring is limited to some seconds.
/// @param sample  measures once and answers the seconds
template <typename Sample>
double medianSeconds(Sample sample) {
    constexpr double enough = 0.2;
    constexpr double tooLong = 3;
    const double start = processorTime();
    std::vector<double> samples;
    double measured = 0;
    do {
        samples.push_back(sample());
        measured += samples.back();
    } while ((measured < enough || samples.size() < 3) && processorTime() - start < tooLong);
    return median(std::move(samples));
}

/// Seconds that one call of @p step takes, which may be too short for the clock. The first call does not count.
template <typename Step>
double secondsPerCall(Step step) {
    constexpr double shortest = 0.002;
    step();
    int calls = 1;
    const auto batch = [&] {
        return secondsOf([&] {
            for (int i = 0; i < calls; ++i)
                step();
        });
    };
    while (batch() < shortest)
        calls *= 2;
    return medianSeconds(batch) / calls;
}

} // namespace Bench
