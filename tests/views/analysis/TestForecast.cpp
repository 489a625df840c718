#include "views/analysis/TestForecast.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "support/Hermetic.h"
#include "views/analysis/Forecast.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

using Days = std::optional<std::int32_t>;

/// A mean that is given day by day, the day of the calculation first; 0.5 beyond.
MeanByDay meanOf(const std::vector<double>& values) {
    return [values](std::int32_t day) {
        const auto index = static_cast<std::size_t>(day);
        return day >= 0 && index < values.size() ? values[index] : 0.5;
    };
}

/// The last day that a system's forecast tries for an inversion in these tests.
constexpr std::int32_t fakeLastDay = 30'000;

/// The mean of a system that is given for some days; another value on all others.
MeansByDay fakeMeans(const std::map<std::int32_t, double>& values, double otherwise) {
    return [&values, otherwise](std::int32_t first, std::span<double> means) {
        for (double& mean : means) {
            const auto found = values.find(first++);
            mean = found == values.end() ? otherwise : found->second;
        }
    };
}

Forecast systemEvents(const std::map<std::int32_t, double>& values, double otherwise = 0.5) {
    return findSystemEvents(fakeMeans(values, otherwise), fakeLastDay);
}

/// The days from `first` to `last` on which something happens.
template<typename Happens>
std::vector<std::int32_t> daysOf(std::int32_t first, std::int32_t last, Happens happens) {
    std::vector<std::int32_t> found;
    for (std::int32_t day = first; day <= last; ++day) {
        if (happens(day)) {
            found.push_back(day);
        }
    }
    return found;
}

bool shows(std::int32_t day, int value) {
    return toTenScale(cycleMean(day)) == value;
}

bool inverts(std::int32_t day) {
    return cycleMean(day) * cycleMean(day - 1) <= 0;
}

/// The longest wait until the next of these days from any day between `from` and `to`.
std::int32_t longestWait(const std::vector<std::int32_t>& events, std::int32_t from,
                         std::int32_t to) {
    std::int32_t longest = 0;
    for (std::int32_t day = from; day <= to; ++day) {
        longest = std::max(longest, *std::upper_bound(events.begin(), events.end(), day) - day);
    }
    return longest;
}

/// Every forecast from `from` to `to` is the next event, and is there at all.
void verifyForecasts(std::int32_t from, std::int32_t to) {
    const std::int32_t end = to + 2 * longestWaitForExtreme;
    const auto inversions = daysOf(from, end, inverts);
    const auto maxima = daysOf(from, end, [](std::int32_t day) { return shows(day, 10); });
    const auto minima = daysOf(from, end, [](std::int32_t day) { return shows(day, -10); });
    const auto wait = [](const std::vector<std::int32_t>& events, std::int32_t day) {
        return Days(*std::upper_bound(events.begin(), events.end(), day) - day);
    };
    for (std::int32_t day = from; day <= to; ++day) {
        const Forecast expected{.inversion = wait(inversions, day),
                                .maximum = wait(maxima, day),
                                .minimum = wait(minima, day)};
        if (personForecast(day) != expected) {
            QFAIL(qPrintable(u"wrong on day %1"_s.arg(day)));
        }
    }
}

} // namespace

void TestForecast::inversionStopsWhereTheSignChanges() {
    QCOMPARE(findInversion(meanOf({0.5, 0.3, 0.1, -0.1, 0.1}), {1, 100}), Days(3));
    QCOMPARE(findInversion(meanOf({-0.5, -0.3, 0.1, -0.1}), {1, 100}), Days(2));
    QCOMPARE(findInversion(meanOf({-0.1, 0.1}), {1, 100}), Days(1));
    // Unrounded: both would show 0.
    QCOMPARE(findInversion(meanOf({0.02, 0.01, -1e-15}), {1, 100}), Days(2));
}

void TestForecast::inversionStopsAtZero() {
    QCOMPARE(findInversion(meanOf({0.5, 0.3, 0.0, 0.3}), {1, 100}), Days(2));
    QCOMPARE(findInversion(meanOf({0.5, 0.0, 0.3}), {1, 100}), Days(1));
    QCOMPARE(findInversion(meanOf({-0.5, -0.0, -0.3}), {1, 100}), Days(1));
}

void TestForecast::inversionStopsAfterZero() {
    QCOMPARE(findInversion(meanOf({0.0, 0.3, 0.4}), {1, 100}), Days(1));
    QCOMPARE(findInversion(meanOf({0.5, 0.0, 0.3, 0.4}), {2, 100}), Days(2));
}

void TestForecast::inversionIsNothingBeyondTheRange() {
    const MeanByDay mean = meanOf({0.5, 0.4, 0.3, 0.2, -0.2});
    QCOMPARE(findInversion(mean, {1, 3}), Days());
    QCOMPARE(findInversion(mean, {1, 4}), Days(4));
    QCOMPARE(findInversion(mean, {5, 4}), Days());
    // Day 0 may be asked for, too; the day before it then counts.
    QCOMPARE(findInversion([](std::int32_t day) { return day < 0 ? -0.5 : 0.5; }, {0, 9}), Days(0));
}

void TestForecast::extremesAreTheRoundedValues() {
    QCOMPARE(findTenScale(meanOf({0.5, 0.9, 0.9499, 0.96}), 10, {1, 100}), Days(3));
    QCOMPARE(findTenScale(meanOf({0.5, 0.9, 0.95, 1.0}), 10, {1, 100}), Days(2)); // 9.5 shows 10
    QCOMPARE(findTenScale(meanOf({0.5, -0.9, -0.95}), -10, {1, 100}), Days(2));
    // Exactly the target: a value beyond it is passed over, and 8.5 shows 8.
    QCOMPARE(findTenScale(meanOf({0.5, 0.96, 0.85, 0.86}), 9, {1, 100}), Days(3));
    QCOMPARE(findTenScale(meanOf({0.5, 1.0, 1.0}), -10, {1, 100}), Days());
}

void TestForecast::rangeIncludesBothEnds() {
    const MeanByDay mean = meanOf({1.0, 0.5, 1.0, 0.5, 1.0});
    QCOMPARE(findTenScale(mean, 10, {0, 4}), Days(0));
    QCOMPARE(findTenScale(mean, 10, {1, 2}), Days(2));
    QCOMPARE(findTenScale(mean, 10, {1, 1}), Days());
    QCOMPARE(findTenScale(mean, 10, {3, 4}), Days(4));
}

void TestForecast::onePeriodHas63OfEach() {
    QCOMPARE(meanPeriod, 21252);
    for (const std::int32_t first : {0, 1, -meanPeriod, -10000, 12345}) {
        const std::int32_t last = first + meanPeriod - 1;
        for (const int value : {10, -10}) {
            const auto found =
                daysOf(first, last, [value](std::int32_t day) { return shows(day, value); });
            QCOMPARE(found.size(), std::size_t{63});
        }
    }
}

void TestForecast::waitsAreBoundedByOnePeriod() {
    const std::int32_t end = meanPeriod + 2 * longestWaitForExtreme;
    for (const int value : {10, -10}) {
        const auto found = daysOf(0, end, [value](std::int32_t day) { return shows(day, value); });
        QCOMPARE(longestWait(found, 0, meanPeriod - 1), longestWaitForExtreme);
    }
    QCOMPARE(longestWait(daysOf(0, end, inverts), 0, meanPeriod - 1), longestWaitForInversion);
    verifyForecasts(0, meanPeriod - 1);
}

void TestForecast::waitsAreBoundedOnBothSidesOfTheBirth() {
    const std::int32_t end = 2 * meanPeriod + 2 * longestWaitForExtreme;
    for (const int value : {10, -10}) {
        const auto found =
            daysOf(-2 * meanPeriod, end, [value](std::int32_t day) { return shows(day, value); });
        QCOMPARE(longestWait(found, -2 * meanPeriod, 2 * meanPeriod), longestWaitForExtreme);
        QCOMPARE(longestWait(found, -2 * meanPeriod, -1), longestWaitForExtreme);
        QVERIFY(longestWait(found, -longestWaitForExtreme, 0) <= longestWaitForExtreme);
    }
    const auto inversions = daysOf(-2 * meanPeriod, end, inverts);
    QCOMPARE(longestWait(inversions, -2 * meanPeriod, 2 * meanPeriod), longestWaitForInversion);
    verifyForecasts(-meanPeriod, -1);
}

void TestForecast::meanIsOddAndPeriodic() {
    // What the bounds for day counts before the birth rest on, to the last bit.
    for (std::int32_t day = 0; day < meanPeriod; ++day) {
        QVERIFY(cycleMean(-day) == -cycleMean(day));
        QVERIFY(cycleMean(day + meanPeriod) == cycleMean(day));
        QVERIFY(cycleMean(-day - meanPeriod) == cycleMean(-day));
        for (const Period period : periods) {
            QVERIFY(cycleValue(-day, period) == -cycleValue(day, period));
        }
    }
}

void TestForecast::startsOnTheDayAfter() {
    QVERIFY(shows(372, 10) && !shows(373, 10));
    QCOMPARE(personForecast(371).maximum, Days(1));
    QCOMPARE(personForecast(372).maximum, Days(922)); // not the day itself
    QVERIFY(shows(6, 10) && shows(7, 10));
    QCOMPARE(personForecast(6).maximum, Days(1)); // the day itself and the next one
    QCOMPARE(personForecast(-373).minimum, Days(1));
    QCOMPARE(personForecast(-1).inversion, Days(1)); // zero on the day of birth
    QCOMPARE(personForecast(0).inversion, Days(1));  // after the zero
    QVERIFY(personForecast(1).inversion.value_or(0) > 1);
}

void TestForecast::knownPerson() {
    QCOMPARE(personForecast(8116), (Forecast{.inversion = 4, .maximum = 9, .minimum = 388}));
}

void TestForecast::rowsHoldDatesAndDays() {
    const Forecast forecast{.inversion = 4, .maximum = 9, .minimum = 388};
    const DateValue date = toDateValue(QDate(2004, 3, 15));
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    const auto longRows = forecastRows(forecast, date, longDate, italian);
    QCOMPARE(longRows[0].date, u"venerdì 19 marzo 2004"_s);
    QCOMPARE(longRows[0].days, u"4"_s);
    QCOMPARE(longRows[1].date, u"mercoledì 24 marzo 2004"_s);
    QCOMPARE(longRows[1].days, u"9"_s);
    QCOMPARE(longRows[2].date, u"giovedì 7 aprile 2005"_s);
    QCOMPARE(longRows[2].days, u"388"_s);
    const auto shortRows = forecastRows(forecast, date, shortDate, italian);
    QCOMPARE(shortRows[2].date, u"07/04/2005"_s);
    // No group separator in a longer wait.
    QCOMPARE(
        forecastRows({.inversion = 1286, .maximum = {}, .minimum = {}}, date, shortDate, italian)[0]
            .days,
        u"1286"_s);
}

void TestForecast::rowsKeepTheDayOfADateWithATime() {
    const Forecast forecast{.inversion = 2, .maximum = 3, .minimum = 4};
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    // Six o'clock on the day before day 0, where the fraction is negative but counts forwards.
    const auto rows = forecastRows(forecast, -1.25, shortDate, italian);
    QCOMPARE(rows[0].date, u"31/12/1899"_s);
    QCOMPARE(forecastRows(forecast, 38061.75, shortDate, italian)[0].date, u"17/03/2004"_s);
}

void TestForecast::rowsBeyondTheLastYear() {
    const Forecast forecast{.inversion = 1, .maximum = 2, .minimum = 3};
    const auto rows = forecastRows(forecast, toDateValue(QDate(9999, 12, 31)), longDate,
                                   QLocale(QLocale::Italian, QLocale::Italy));
    QCOMPARE(rows[0].date, u"sabato 1 gennaio 10000"_s);
}

void TestForecast::rowsSayNever() {
    const Forecast forecast{.inversion = 0, .maximum = {}, .minimum = 5};
    const auto rows = forecastRows(forecast, toDateValue(QDate(2004, 3, 15)), shortDate,
                                   QLocale(QLocale::Italian, QLocale::Italy));
    QCOMPARE(rows[0], (ForecastRow{.date = u"15/03/2004"_s, .days = u"0"_s}));
    QCOMPARE(rows[1], (ForecastRow{.date = u"Mai"_s, .days = u"Mai"_s}));
    QCOMPARE(rows[2].days, u"5"_s);
}

void TestForecast::systemStartsOnTheCalculationDate() {
    QCOMPARE(systemEvents({{0, 0.9}, {1, -0.9}}, -0.5),
             (Forecast{.inversion = 0, .maximum = 0, .minimum = 1}));
    QCOMPARE(systemEvents({{0, 0.9}, {1, -0.9}}, 0.5).inversion, Days(1));
    // Zero, on the calculation date or on the day before.
    QCOMPARE(systemEvents({{0, 0.0}}, 0.5).inversion, Days(0));
    QCOMPARE(systemEvents({{0, -0.0}}, 0.5).inversion, Days(0));
    QCOMPARE(systemEvents({}, 0.0).inversion, Days(0));
    // Unrounded.
    QCOMPARE(systemEvents({{3, 1e-15}, {4, -1e-15}}, 0.5).inversion, Days(4));
}

void TestForecast::systemExtremesAreExactlyNine() {
    // 8.5 shows 8 and 9.5 shows 10; a day that shows 10 is passed over.
    QCOMPARE(systemEvents({{2, 0.85}, {3, 0.95}, {5, 1.0}, {7, 0.9499}}).maximum, Days(7));
    QCOMPARE(systemEvents({{2, 0.85}, {3, 0.8501}}).maximum, Days(3));
    QCOMPARE(systemEvents({{2, -0.85}, {3, -0.95}, {5, -1.0}, {7, -0.9499}}).minimum, Days(7));
    QCOMPARE(systemEvents({{2, -0.85}, {3, -0.8501}}).minimum, Days(3));
    QCOMPARE(systemEvents({{5, 1.0}, {6, -1.0}}),
             (Forecast{.inversion = 6, .maximum = {}, .minimum = {}}));
}

void TestForecast::systemHorizonIsTheDay22000() {
    for (const double nine : {0.9, -0.9}) {
        const auto extreme = [nine](const std::map<std::int32_t, double>& values) {
            const Forecast forecast = systemEvents(values);
            return nine > 0 ? forecast.maximum : forecast.minimum;
        };
        QCOMPARE(extreme({{21'999, nine}}), Days(21'999));
        QCOMPARE(extreme({{22'000, nine}}), Days());
        QCOMPARE(extreme({{22'001, nine}}), Days());
        QCOMPARE(extreme({{21'999, nine}, {22'000, nine}, {22'001, nine}}), Days(21'999));
        // Where the blocks meet in which the days are asked for.
        for (const std::int32_t day : {31, 32, 159, 160, 671, 672, 2719, 2720}) {
            QCOMPARE(extreme({{day, nine}}), Days(day));
        }
    }
    // As the window shows them.
    const auto rows =
        forecastRows(systemEvents({{22'000, 0.9}, {21'999, -0.9}}), toDateValue(QDate(2004, 3, 15)),
                     shortDate, QLocale(QLocale::Italian, QLocale::Italy));
    QCOMPARE(rows[1], (ForecastRow{.date = u"Mai"_s, .days = u"Mai"_s}));
    QCOMPARE(rows[2], (ForecastRow{.date = u"07/06/2064"_s, .days = u"21999"_s}));
}

void TestForecast::systemInversionMayComeBeyondTheHorizon() {
    QCOMPARE(systemEvents({{21'999, -0.1}, {22'000, 0.1}}).inversion, Days(21'999));
    QCOMPARE(systemEvents({{22'000, -0.1}}).inversion, Days(22'000));
    QCOMPARE(systemEvents({{fakeLastDay, -0.1}}).inversion, Days(fakeLastDay));
    // A mean that never inverts is given up in the end.
    QCOMPARE(systemEvents({}), Forecast());
    QCOMPARE(systemEvents({{fakeLastDay + 1, -0.1}}), Forecast());
}

void TestForecast::systemAsksForEachDayOnce() {
    std::int32_t next = -1;
    bool consecutive = true;
    std::map<std::int32_t, double> values;
    const MeansByDay means = [&](std::int32_t first, std::span<double> block) {
        consecutive = consecutive && first == next && !block.empty();
        next = first + static_cast<std::int32_t>(block.size());
        fakeMeans(values, 0.5)(first, block);
    };
    QCOMPARE(findSystemEvents(means, fakeLastDay), Forecast());
    QVERIFY(consecutive);
    QCOMPARE(next, fakeLastDay + 1);
    // Without extremes the horizon is the end...
    next = -1;
    values = {{2, -0.1}};
    QCOMPARE(findSystemEvents(means, fakeLastDay),
             (Forecast{.inversion = 2, .maximum = {}, .minimum = {}}));
    QVERIFY(consecutive);
    QCOMPARE(next, systemHorizon);
    // ...and where all three are found, the block in which they lie.
    next = -1;
    values = {{2, -0.9}, {3, 0.9}};
    QCOMPARE(findSystemEvents(means, fakeLastDay),
             (Forecast{.inversion = 2, .maximum = 3, .minimum = 2}));
    QVERIFY(consecutive);
    QVERIFY(next < 100);
}

void TestForecast::systemIsWhatTheFormulasSay() {
    const std::vector<std::vector<std::int32_t>> systems{
        {8116},
        {0},
        {369},
        {372},
        {0, 14},
        {-30'000, -20'000},
        {371, 372, 373, 371, 371 + meanPeriod},
        {100, 5000, -70, 9000},
        {-21'990, -21'995},
        {-25'000, 6},
    };
    for (const auto& dayCounts : systems) {
        const auto mean = [&](std::int32_t offset) {
            double sum = 0;
            for (const std::int32_t dayCount : dayCounts) {
                sum += cycleMean(dayCount + offset);
            }
            return sum / static_cast<double>(dayCounts.size());
        };
        const auto extreme = [&](int target) {
            std::int32_t k = 0;
            while (toInt16(mean(k) * 10) != target && k < 22'001) {
                ++k;
            }
            return k >= 22'000 ? Days() : Days(k);
        };
        std::int32_t inversion = 0;
        while (mean(inversion) * mean(inversion - 1) > 0) {
            ++inversion;
        }
        QCOMPARE(systemForecast(SystemMean(dayCounts)),
                 (Forecast{.inversion = inversion, .maximum = extreme(9), .minimum = extreme(-9)}));
    }
}

void TestForecast::systemOfOneMember() {
    // 9 comes on the second day, 10 only on the third.
    QVERIFY(shows(371, 9) && shows(372, 10));
    QCOMPARE(systemForecast(SystemMean({369})).maximum, Days(2));
    // The day itself shows 10, the next one 9.
    QVERIFY(shows(373, 9));
    QCOMPARE(systemForecast(SystemMean({372})).maximum, Days(1));
    QCOMPARE(systemForecast(SystemMean({371})).maximum, Days(0));
    QCOMPARE(systemForecast(SystemMean({8008})).inversion, Days(0)); // since the day before
    QCOMPARE(systemForecast(SystemMean({0})).inversion, Days(0));    // zero on the day itself
    QCOMPARE(systemForecast(SystemMean({1})).inversion, Days(0));    // zero on the day before
    QVERIFY(systemForecast(SystemMean({2})).inversion.value_or(0) > 0);
}

void TestForecast::evenSystemHasNoExtremes() {
    // 23 members in whose sum each cycle cancels out, so that only rounding is left.
    std::vector<std::int32_t> dayCounts;
    for (std::int32_t i = 0; i < 23; ++i) {
        const std::int32_t emotional = i < 16 ? i / 2 + i % 2 * 14 : (i - 16) * 4;
        const std::int32_t intellectual = i < 12 ? i / 3 + i % 3 * 11 : (i - 12) * 3;
        std::int32_t day = 0;
        while (day % 23 != i || day % 28 != emotional || day % 33 != intellectual) {
            ++day;
        }
        dayCounts.push_back(day);
    }
    const SystemMean system(dayCounts);
    std::vector<double> means(static_cast<std::size_t>(meanPeriod));
    system.mean(0, means);
    for (const double mean : means) {
        QVERIFY(std::abs(mean) < 1e-15);
    }
    const Forecast forecast = systemForecast(system);
    QVERIFY(forecast.inversion);
    QVERIFY(!forecast.maximum);
    QVERIFY(!forecast.minimum);
}

void TestForecast::systemWithoutMembers() {
    QCOMPARE(systemForecast(SystemMean({})),
             (Forecast{.inversion = 0, .maximum = {}, .minimum = {}}));
}

void TestForecast::largestSystem() {
    // As many members as there can be, in step: what one of them shows.
    QCOMPARE(systemForecast(SystemMean(std::vector<std::int32_t>(32'767, 8116))),
             systemForecast(SystemMean({8116})));
}

} // namespace quor::test
