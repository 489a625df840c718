#pragma once

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <vector>

/// How the benchmarks take times and compare them.
namespace quor::bench {

/// Processor time of this process, in milliseconds: on a busy machine the clock on the wall
/// measures the others.
inline double processorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// Milliseconds of processor time that some work takes.
template<typename Work> double measure(const Work& work) {
    const double start = processorMilliseconds();
    work();
    return processorMilliseconds() - start;
}

/// @param values one at least
inline double median(std::vector<double> values) {
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Takes the times of both in turn, which of them comes first changing from round to round, and
/// prints the median of the ratios, the smallest and the largest, and the medians of the times.
/// @param quor @param bare functions that return the milliseconds of a round
template<typename Quor, typename Bare>
void compareTimes(const char* name, int rounds, const Quor& quor, const Bare& bare) {
    std::vector<double> quorTimes;
    std::vector<double> bareTimes;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const bool quorFirst = round % 2 == 0;
        const double first = quorFirst ? quor() : bare();
        const double second = quorFirst ? bare() : quor();
        quorTimes.push_back(quorFirst ? first : second);
        bareTimes.push_back(quorFirst ? second : first);
        ratios.push_back(quorTimes.back() / bareTimes.back());
    }
    const auto [least, most] = std::ranges::minmax(ratios);
    std::printf("%-15s %.3f (median of %d ratios, %.3f to %.3f; medians %.3f and %.3f ms)\n", name,
                median(ratios), rounds, least, most, median(quorTimes), median(bareTimes));
}

} // namespace quor::bench
