// The values of a large system's graph against the definition, member by member and day by day.
//
// 32,767 members over 365 days on each side, all four curves. The direct way computes for each
// member and day the three cycles and their mean with a sine for each value and adds them up. The
// two results are compared and must be equal to the last bit.

#include "Keeper.h"
#include "core/Cycles.h"
#include "views/graph/GraphSeries.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace quor;

namespace {

constexpr std::size_t allMembers = std::numeric_limits<std::int16_t>::max();

struct Case {
    const char* name;
    std::size_t members;
    std::int32_t daysAround;
    std::int32_t earliest; ///< day counts of the members on the middle day, from ...
    std::int32_t latest;   ///< ... to
    bool againstDirect;    ///< or only Quor's time is of interest: the direct way takes minutes
};

constexpr std::array cases{
    Case{"tiny", 40, 20, 0, 30'000, true},
    Case{"year", allMembers, 365, 3'000, 30'000, true},
    Case{"year-births-within", allMembers, 365, -365, 365, true},
    Case{"longest", allMembers, 32'787, 33'000, 60'000, false},
    Case{"longest-births-within", allMembers, 32'787, 0, 30'000, false},
};

std::vector<std::int32_t> dayCounts(const Case& c) {
    std::mt19937 random(20260101); // the same system in every run
    std::uniform_int_distribution<std::int32_t> distribution(c.earliest, c.latest);
    std::vector<std::int32_t> counts(c.members);
    std::ranges::generate(counts, [&] { return distribution(random); });
    return counts;
}

/// The four curves by their definition.
GraphSeries direct(const std::vector<std::int32_t>& dayCounts, std::int32_t daysAround) {
    const auto members = static_cast<double>(dayCounts.size());
    GraphSeries series;
    for (std::int32_t offset = -daysAround; offset <= daysAround; ++offset) {
        const auto mean = [&](auto value) {
            double sum = 0;
            for (const std::int32_t dayCount : dayCounts) {
                sum += value(dayCount + offset);
            }
            return sum / members;
        };
        const auto cycle = [&](Period period) {
            return mean([period](std::int32_t day) { return cycleValue(day, period); });
        };
        series.physical.push_back(cycle(Period::physical));
        series.emotional.push_back(cycle(Period::emotional));
        series.intellectual.push_back(cycle(Period::intellectual));
        series.mean.push_back(mean([](std::int32_t day) { return cycleMean(day); }));
    }
    return series;
}

bool sameBits(const std::vector<double>& left, const std::vector<double>& right) {
    return std::ranges::equal(left, right, [](double a, double b) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    });
}

bool sameCurves(const GraphSeries& left, const GraphSeries& right) {
    return sameBits(left.physical, right.physical) && sameBits(left.emotional, right.emotional) &&
           sameBits(left.intellectual, right.intellectual) && sameBits(left.mean, right.mean);
}

void computeQuor(benchmark::State& state, const Case& c) {
    const std::vector<std::int32_t> counts = dayCounts(c);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(systemSeries(SystemMean(counts), c.daysAround));
    }
}

void computeDirect(benchmark::State& state, const Case& c) {
    const std::vector<std::int32_t> counts = dayCounts(c);
    for ([[maybe_unused]] auto _ : state) {
        GraphSeries series = direct(counts, c.daysAround);
        benchmark::DoNotOptimize(series);
        state.PauseTiming();
        if (!sameCurves(series, systemSeries(SystemMean(counts), c.daysAround))) {
            state.SkipWithError("the curves differ");
        }
        state.ResumeTiming();
    }
}

} // namespace

int main(int argc, char** argv) {
    for (const Case& c : cases) {
        const std::string name = c.name;
        benchmark::RegisterBenchmark(("quor/" + name).c_str(), computeQuor, c)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(5);
        if (c.againstDirect) {
            benchmark::RegisterBenchmark(("direct/" + name).c_str(), computeDirect, c)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(1);
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::Keeper keeper(bench::Printed::all);
    benchmark::RunSpecifiedBenchmarks(&keeper);
    for (const Case& c : cases) {
        const double direct = keeper.medianOf(std::string("direct/") + c.name);
        const double quor = keeper.medianOf(std::string("quor/") + c.name);
        if (direct > 0 && quor > 0) {
            std::printf("%-22s direct/quor %.0f (medians %.3f and %.3f ms)\n", c.name,
                        direct / quor, direct, quor);
        }
    }
    return keeper.hasFailed() ? 1 : 0;
}
