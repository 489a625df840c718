#include "views/graph/WeekState.h"

#include "core/Cycles.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

std::uint8_t positivePhase(std::int32_t dayCount, Period period) {
    const std::int32_t signedPhase = phase(dayCount, period);
    return static_cast<std::uint8_t>(signedPhase < 0 ? signedPhase + days(period) : signedPhase);
}

/// The value of a cycle some days after Monday's start.
double valueAt(std::int32_t weekStartDayCount, Period period, double daysLater) {
    return std::sin(angleStep(period) * (positivePhase(weekStartDayCount, period) + daysLater));
}

} // namespace

Week weekOf(const Biorhythm& biorhythm) {
    const DateValue calculationDay = dayNumber(biorhythm.calculationDate);
    const DateValue birth = calculationDay - dayCountOnCalculationDate(biorhythm);
    Week week;
    week.weekday = toQDate(calculationDay).dayOfWeek();
    week.weekStart = calculationDay - week.weekday + 1;
    week.weekStartDayCount = dayCount(birth, week.weekStart);
    return week;
}

QString rowLabel(WeekRow row) {
    switch (row) {
    case WeekRow::mean:
        return u"MEDIA"_s;
    case WeekRow::physical:
        return u"FISICO"_s;
    case WeekRow::emotional:
        return u"EMOTIVO"_s;
    case WeekRow::intellectual:
        break;
    }
    return u"INTELLETTIVO"_s;
}

DayClass dayClass(double value) {
    const double tenfold = 10 * value;
    if (tenfold >= 8) {
        return DayClass::optimal;
    }
    return tenfold < -3 || tenfold > 3 ? DayClass::stable : DayClass::critical;
}

HalfDays weekValues(std::int32_t weekStartDayCount, WeekRow row) {
    HalfDays values{};
    double daysLater = 0;
    for (double& value : values) {
        const auto cycle = [&](Period period) {
            return valueAt(weekStartDayCount, period, daysLater);
        };
        switch (row) {
        case WeekRow::mean:
            value = meanOfCycles(cycle(Period::physical), cycle(Period::emotional),
                                 cycle(Period::intellectual));
            break;
        case WeekRow::physical:
            value = cycle(Period::physical);
            break;
        case WeekRow::emotional:
            value = cycle(Period::emotional);
            break;
        case WeekRow::intellectual:
            value = cycle(Period::intellectual);
            break;
        }
        daysLater += 0.5;
    }
    return values;
}

QString className(DayClass state) {
    switch (state) {
    case DayClass::critical:
        return u"critico"_s;
    case DayClass::stable:
        return u"stabile"_s;
    case DayClass::optimal:
        break;
    }
    return u"ottimo"_s;
}

QString describeRow(const Week& week, WeekRow row, const QLocale& locale) {
    const HalfDays values = weekValues(week.weekStartDayCount, row);
    QStringList days;
    for (int day = 0; day < daysInWeek; ++day) {
        const auto half = 2 * static_cast<std::size_t>(day);
        const QString start = className(dayClass(values.at(half)));
        const QString middle = className(dayClass(values.at(half + 1)));
        QString text = longDate(week.weekStart + day, locale) + u": "_s + start;
        if (middle != start) {
            text += u", poi "_s + middle;
        }
        if (day + 1 == week.weekday) {
            text += u" (data di calcolo)"_s;
        }
        days << text;
    }
    return days.join(u"; "_s);
}

} // namespace quor
