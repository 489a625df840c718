#pragma once

#include <QDate>
#include <QLocale>
#include <QString>

#include <chrono>
#include <cstdint>

/// Dates as numbers, and dates as the user reads them.
namespace quor {

/// Days since 1899-12-30; a fraction is the time of day. 0 stands for "no date".
using DateValue = double;

/// Day 0 of a `DateValue`.
inline constexpr std::chrono::sys_days dateOrigin =
    std::chrono::year(1899) / std::chrono::December / 30;

/// The years that a date may lie in, as it is typed and as a file holds it.
inline constexpr int firstYear = 100;
inline constexpr int lastYear = 9999;

/// The day of a value, its time of day left out. The value is within ±2^31 days.
[[nodiscard]] std::int32_t dayNumber(DateValue date);

/// The whole number of days from one date to another, negative when `to` is the earlier one.
[[nodiscard]] std::int32_t dayCount(DateValue from, DateValue to);

[[nodiscard]] DateValue toDateValue(QDate day);
[[nodiscard]] QDate toQDate(DateValue date);

/// The fields of a date in the order in which a locale writes them.
enum class DateOrder { dayMonthYear, monthDayYear, yearMonthDay };

/// How a locale writes a short date.
struct ShortDateFormat {
    DateOrder order = DateOrder::dayMonthYear;
    QChar separator = u'/';

    /// "25/12/1981": two-digit day and month, four-digit year, Western digits, so that a date that
    /// is shown can be typed back.
    [[nodiscard]] QString text(DateValue date) const;

    [[nodiscard]] static ShortDateFormat of(const QLocale& locale);
};

[[nodiscard]] QString shortDate(DateValue date, const QLocale& locale = QLocale());

/// "venerdì 25 dicembre 1981": as the locale writes a long date, without a time.
[[nodiscard]] QString longDate(DateValue date, const QLocale& locale = QLocale());

} // namespace quor
