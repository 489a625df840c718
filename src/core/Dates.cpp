#include "core/Dates.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

const QDate& origin() {
    static const QDate day = QDate(1970, 1, 1).addDays(dateOrigin.time_since_epoch().count());
    return day;
}

QString padded(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

} // namespace

std::int32_t dayNumber(DateValue date) {
    // Before the origin the fraction still counts the hours from midnight: -1.25 is six o'clock of
    // the day before the origin. The whole part is the day on both sides.
    return static_cast<std::int32_t>(std::trunc(date));
}

std::int32_t dayCount(DateValue from, DateValue to) {
    return dayNumber(to) - dayNumber(from);
}

DateValue toDateValue(QDate day) {
    return static_cast<DateValue>(origin().daysTo(day));
}

QDate toQDate(DateValue date) {
    return origin().addDays(dayNumber(date));
}

ShortDateFormat ShortDateFormat::of(const QLocale& locale) {
    const QString pattern = locale.dateFormat(QLocale::ShortFormat);
    const auto day = pattern.indexOf(u'd');
    const auto month = pattern.indexOf(u'M');
    const auto year = pattern.indexOf(u'y');

    ShortDateFormat format;
    if (day < 0 || month < 0 || year < 0) {
        return format;
    }
    if (year < month && month < day) {
        format.order = DateOrder::yearMonthDay;
    } else if (month < day) {
        format.order = DateOrder::monthDayYear;
    }
    constexpr std::array known{u'/', u'-', u'.'};
    const auto separator = std::find_if(pattern.begin(), pattern.end(), [&](QChar c) {
        return std::find(known.begin(), known.end(), c.unicode()) != known.end();
    });
    if (separator != pattern.end()) {
        format.separator = *separator;
    }
    return format;
}

QString ShortDateFormat::text(DateValue date) const {
    const QDate calendarDay = toQDate(date);
    const QString day = padded(calendarDay.day(), 2);
    const QString month = padded(calendarDay.month(), 2);
    const QString year = padded(calendarDay.year(), 4);
    switch (order) {
    case DateOrder::monthDayYear:
        return month + separator + day + separator + year;
    case DateOrder::yearMonthDay:
        return year + separator + month + separator + day;
    case DateOrder::dayMonthYear:
        break;
    }
    return day + separator + month + separator + year;
}

QString shortDate(DateValue date, const QLocale& locale) {
    return ShortDateFormat::of(locale).text(date);
}

QString longDate(DateValue date, const QLocale& locale) {
    return locale.toString(toQDate(date), QLocale::LongFormat);
}

} // namespace quor
