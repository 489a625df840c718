// The forecast of the largest system against the direct formula and against bare additions.
//
// The births are spread, so that neither a maximum nor a minimum comes within the horizon and every
// day up to it has to be tried, while the inversion is a matter of days. The direct formula
// computes one mean of three sines for each member and day, and searches once for the maximum and
// once for the minimum; that takes minutes, so it is measured over a part of the days and
// multiplied. The bare loop adds as many doubles as the forecast has members and days, from one
// place in memory, into sums. Rounds are taken in turn, and the medians of processor time are
// compared.

#include "Measure.h"
#include "core/Cycles.h"
#include "core/Rounding.h"
#include "core/SystemMean.h"
#include "views/analysis/Forecast.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>
#include <vector>

using namespace quor;
using quor::bench::measure;
using quor::bench::median;

namespace {

/// A search that finds nothing ends after this day.
constexpr std::int32_t lastDay = systemHorizon + 1;

/// The direct formula's searches are measured up to this day.
constexpr std::int32_t lastDayMeasured = 54;

/// What a whole search takes, as a multiple of what is measured; both begin with day 0.
constexpr double wholeSearch = static_cast<double>(lastDay + 1) / (lastDayMeasured + 1);

std::vector<std::int32_t> spreadMembers(std::size_t count) {
    std::mt19937 random(20260101); // NOLINT: the same system in every run
    std::uniform_int_distribution<std::int32_t> age(0, 30'000);
    std::vector<std::int32_t> dayCounts(count);
    std::ranges::generate(dayCounts, [&] { return age(random); });
    return dayCounts;
}

double directMean(const std::vector<std::int32_t>& dayCounts, std::int32_t offset) {
    double sum = 0;
    for (const std::int32_t dayCount : dayCounts) {
        sum += cycleMean(dayCount + offset);
    }
    return sum / static_cast<double>(dayCounts.size());
}

std::int32_t directSearch(const std::vector<std::int32_t>& dayCounts, int target,
                          std::int32_t last) {
    std::int32_t day = 0;
    while (toTenScale(directMean(dayCounts, day)) != target && day < last) {
        ++day;
    }
    return day;
}

std::int32_t directInversion(const std::vector<std::int32_t>& dayCounts) {
    std::int32_t day = 0;
    while (directMean(dayCounts, day) * directMean(dayCounts, day - 1) > 0) {
        ++day;
    }
    return day;
}

/// As many additions as the forecast makes, and nothing else: a block of sums takes the place of
/// the days and a run of doubles that of each member's values.
class BareLoop {
  public:
    explicit BareLoop(std::size_t members)
        : m_members(members)
        , m_values(2 * static_cast<std::size_t>(meanPeriod), 0.125) {}

    double run() {
        double total = 0;
        for (std::size_t day = 0; day < static_cast<std::size_t>(systemHorizon); day += block) {
            m_sums.fill(0);
            std::size_t place = 0;
            for (std::size_t member = 0; member < m_members; ++member) {
                add(m_values.data() + place);
                place = place + 2 * block <= m_values.size() ? place + block : 0;
            }
            total += m_sums.front();
        }
        return total;
    }

  private:
    // A constant, a multiple of the width of a register, and sums that overlap nothing: the
    // compiler has all it takes to add several doubles with one instruction.
    static constexpr std::size_t block = 500;

    void add(const double* __restrict values) {
        double* __restrict sums = m_sums.data();
        for (std::size_t i = 0; i < block; ++i) {
            sums[i] += values[i];
        }
    }

    std::size_t m_members;
    std::vector<double> m_values;
    std::array<double, block> m_sums{};
};

/// A number from the command line; 0 if there is no such option.
std::size_t option(int argc, char** argv, std::string_view name) {
    for (int i = 1; i + 1 < argc; i += 2) {
        if (argv[i] == name) {
            return std::strtoul(argv[i + 1], nullptr, 10);
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t membersWanted = option(argc, argv, "--members");
    const std::size_t roundsWanted = option(argc, argv, "--rounds");
    const std::size_t members = membersWanted > 0 ? membersWanted : 32'767;
    const std::size_t rounds = roundsWanted > 0 ? roundsWanted : 9;
    const std::vector<std::int32_t> dayCounts = spreadMembers(members);

    BareLoop bare(members);
    Forecast forecast;
    std::int32_t inversion = 0;
    bool complete = true;
    std::vector<double> quorTimes;
    std::vector<double> bareTimes;
    std::vector<double> directTimes;
    volatile double kept = 0; // or the bare loop would not be run at all
    const double cold = measure([&] { forecast = systemForecast(SystemMean(dayCounts)); });
    for (std::size_t round = 0; round < rounds; ++round) {
        quorTimes.push_back(measure([&] { forecast = systemForecast(SystemMean(dayCounts)); }));
        bareTimes.push_back(measure([&] { kept = bare.run(); }));
        const double inversionTime = measure([&] { inversion = directInversion(dayCounts); });
        std::int32_t days = 0;
        const double partTime = measure([&] {
            days = directSearch(dayCounts, systemExtreme, lastDayMeasured) +
                   directSearch(dayCounts, -systemExtreme, lastDayMeasured);
        });
        complete = complete && days == 2 * lastDayMeasured;
        directTimes.push_back(inversionTime + partTime * wholeSearch);
    }
    if (!complete || forecast.maximum || forecast.minimum || forecast.inversion != inversion) {
        std::fprintf(stderr, "bench_system_forecast: not the forecast that was to be measured\n");
        return 1;
    }
    const double quor = median(quorTimes);
    const double direct = median(directTimes);
    std::printf("%zu members, no extreme, inversion after %d days, %zu rounds\n", members,
                inversion, rounds);
    std::printf("forecast     %12.3f ms (the first, with its tables: %.3f ms)\n", quor, cold);
    std::printf("bare loop    %12.3f ms   forecast/bare   %.3f\n", median(bareTimes),
                quor / median(bareTimes));
    std::printf("direct sines %12.3f ms   direct/forecast %.0f (1/%.0f of its days measured)\n",
                direct, direct / quor, wholeSearch);
    return 0;
}
