#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The state of one day: the three cycles and their mean, and where each is heading.
namespace quor {

/// The four values of a day, in the order in which they are shown.
enum class StateItem : std::uint8_t { physical, emotional, intellectual, mean };

inline constexpr std::array stateItems{StateItem::physical, StateItem::emotional,
                                       StateItem::intellectual, StateItem::mean};

/// The values of a day by `StateItem`, each in [-10, 10] and not rounded.
using StateValues = std::array<double, stateItems.size()>;

enum class Trend : std::uint8_t { rising, falling };

struct DayState {
    StateValues today{};
    StateValues yesterday{};

    [[nodiscard]] double value(StateItem item) const;
    [[nodiscard]] Trend trend(StateItem item) const;

    friend bool operator==(const DayState&, const DayState&) = default;
};

/// Falling when the value is lower than the day before; one that stays the same counts as rising.
[[nodiscard]] Trend trendBetween(double yesterday, double today);

/// Each cycle value × 10 and their mean × 10.
[[nodiscard]] StateValues stateValues(std::int32_t dayCount);

/// One person's state.
/// @param dayCount day count of the day whose state it is; above the smallest 32-bit integer
[[nodiscard]] DayState dayState(std::int32_t dayCount);

/// The state of a system: the members' values × 10 added in their order, divided by their number.
/// That of a system without members is 0 throughout.
/// @param dayCounts of each member, on the day whose state it is
[[nodiscard]] DayState systemDayState(std::span<const std::int32_t> dayCounts);

/// A value as it is shown: rounded, ties to even.
/// @param value in [-10, 10]
[[nodiscard]] int shownValue(double value);

/// The caption of a value: "Fisico", "Emotivo", "Intellettivo", "Media".
[[nodiscard]] QString itemCaption(StateItem item);

/// A trend in words: "Stato fisico in salita", "Media in discesa".
[[nodiscard]] QString trendText(StateItem item, Trend trend);

/// A state in words, for those who cannot see it: "Fisico -7, in discesa; Emotivo 2, in salita...".
[[nodiscard]] QString describeState(const DayState& state);

} // namespace quor
