#include "views/analysis/DayState.h"

#include "core/Cycles.h"
#include "core/Rounding.h"

#include <QStringList>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

QString direction(Trend trend) {
    return trend == Trend::rising ? u"in salita"_s : u"in discesa"_s;
}

} // namespace

double DayState::value(StateItem item) const {
    return today.at(static_cast<std::size_t>(item));
}

Trend DayState::trend(StateItem item) const {
    const auto index = static_cast<std::size_t>(item);
    return trendBetween(yesterday.at(index), today.at(index));
}

Trend trendBetween(double yesterday, double today) {
    return yesterday - today > 0 ? Trend::falling : Trend::rising;
}

StateValues stateValues(std::int32_t dayCount) {
    return {cycleValue(dayCount, Period::physical) * 10,
            cycleValue(dayCount, Period::emotional) * 10,
            cycleValue(dayCount, Period::intellectual) * 10, cycleMean(dayCount) * 10};
}

DayState dayState(std::int32_t dayCount) {
    return {.today = stateValues(dayCount), .yesterday = stateValues(dayCount - 1)};
}

DayState systemDayState(std::span<const std::int32_t> dayCounts) {
    DayState sums;
    if (dayCounts.empty()) {
        return sums;
    }
    const auto add = [](StateValues& sum, const StateValues& values) {
        std::ranges::transform(sum, values, sum.begin(), std::plus());
    };
    for (const std::int32_t dayCount : dayCounts) {
        add(sums.today, stateValues(dayCount));
        add(sums.yesterday, stateValues(dayCount - 1));
    }
    const auto members = static_cast<double>(dayCounts.size());
    for (StateValues* values : {&sums.today, &sums.yesterday}) {
        for (double& value : *values) {
            value /= members;
        }
    }
    return sums;
}

int shownValue(double value) {
    return static_cast<int>(roundHalfEven(value));
}

QString itemCaption(StateItem item) {
    switch (item) {
    case StateItem::physical:
        return u"Fisico"_s;
    case StateItem::emotional:
        return u"Emotivo"_s;
    case StateItem::intellectual:
        return u"Intellettivo"_s;
    case StateItem::mean:
        break;
    }
    return u"Media"_s;
}

QString trendText(StateItem item, Trend trend) {
    const QString subject =
        item == StateItem::mean ? itemCaption(item) : u"Stato "_s + itemCaption(item).toLower();
    return subject + u' ' + direction(trend);
}

QString describeState(const DayState& state) {
    QStringList items;
    for (const StateItem item : stateItems) {
        items << u"%1 %2, %3"_s.arg(itemCaption(item))
                     .arg(shownValue(state.value(item)))
                     .arg(direction(state.trend(item)));
    }
    return items.join(u"; "_s);
}

} // namespace quor
