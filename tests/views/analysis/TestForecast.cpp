#include "views/analysis/TestForecast.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "support/Hermetic.h"
#include "views/analysis/Forecast.h"

#include <QTest>

#include <algorithm>
#include <map>

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

} // namespace quor::test
