#pragma once

#include "core/Biorhythm.h"
#include "views/graph/WeekPlot.h"

#include <QString>

#include <array>
#include <cstdint>

namespace quor {

/// The week, Monday to Sunday, that a calculation date lies in.
struct Week {
    int weekday = 1;                    ///< of the calculation date: Monday is 1, Sunday is 7
    DateValue weekStart = 0;            ///< the Monday
    std::int32_t weekStartDayCount = 0; ///< days from the birth date to that Monday

    friend bool operator==(const Week&, const Week&) = default;
};

/// The week of the record's calculation date. The birth is where `daysAtGraphStart` puts it, so
/// that the week and the graph begin from the same apply.
[[nodiscard]] Week weekOf(const Biorhythm& biorhythm);

/// The rows of the weekly state, in the order of their pictures.
enum class WeekRow : std::uint8_t { mean, physical, emotional, intellectual };

inline constexpr std::array weekRows{WeekRow::mean, WeekRow::physical, WeekRow::emotional,
                                     WeekRow::intellectual};

/// "MEDIA", "FISICO", "EMOTIVO", "INTELLETTIVO".
[[nodiscard]] QString rowLabel(WeekRow row);

/// What a half day is like. The number is the index of its colour.
enum class DayClass : std::uint8_t { critical, stable, optimal };

/// Critical is near zero (-0.3 to 0.3, both ends included), optimal is 0.8 and above, all else is
/// stable: a strongly negative value too, on purpose.
/// @param value in [-1, 1]
[[nodiscard]] DayClass dayClass(double value);

/// "critico", "stabile", "ottimo".
[[nodiscard]] QString className(DayClass state);

/// Values in [-1, 1] of a week's half days: Monday's start, Monday's middle, Tuesday's start...
using HalfDays = std::array<double, 2 * static_cast<std::size_t>(daysInWeek)>;

/// A row's values. The phase of Monday is reduced to 0..P-1 and then runs on, so that the days of
/// a week before the birth are those of the same week one or more whole periods later.
[[nodiscard]] HalfDays weekValues(std::int32_t weekStartDayCount, WeekRow row);

/// A row in words, for those who cannot see it: each day with the classes of its halves (once where
/// they are the same), and which one is the calculation date.
[[nodiscard]] QString describeRow(const Week& week, WeekRow row, const QLocale& locale = QLocale());

} // namespace quor
