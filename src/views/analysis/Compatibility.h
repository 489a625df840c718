#pragma once

#include "core/Dates.h"
#include "views/analysis/DayState.h"

#include <QLocale>

#include <array>
#include <cstdint>
#include <optional>

/// How well the cycles of two persons go together.
namespace quor {

/// Percentages, each in [0, 100] and not rounded: 100 when the two cycles run together, 0 when they
/// oppose each other.
struct Compatibility {
    double physical = 0;
    double emotional = 0;
    double intellectual = 0;
    float overall = 0; ///< the mean of the three, in single precision

    friend bool operator==(const Compatibility&, const Compatibility&) = default;
};

/// It depends on the two births alone, in whichever order. Nothing when they lie more days apart
/// than a 16-bit integer holds.
[[nodiscard]] std::optional<Compatibility> compatibility(DateValue birth, DateValue otherBirth);

/// Whether two day counts are compared at all: when they have a bit in common. A count of 0 stands
/// for nobody and has none; there are pairs of persons that have none either (8 and 16 days).
[[nodiscard]] constexpr bool areCompared(std::int32_t dayCount, std::int32_t otherDayCount) {
    return (dayCount & otherDayCount) != 0;
}

/// The panels in their order, each by the curve that it shows: the mean stands for the overall
/// compatibility.
inline constexpr std::array compatibilityPanels{StateItem::mean, StateItem::physical,
                                                StateItem::emotional, StateItem::intellectual};

/// The line that a panel says, with two decimals as the locale writes them:
/// "Compatibilità fisica: 21,74%".
[[nodiscard]] QString compatibilityText(const Compatibility& compatibility, StateItem panel,
                                        const QLocale& locale = QLocale());

/// A panel in words, for those who cannot see it: its line, and whom it compares.
/// "Compatibilità fisica: 21,74%, tra Anna e Bruno".
[[nodiscard]] QString describeComparison(const Compatibility& compatibility, StateItem panel,
                                         const std::array<QString, 2>& names,
                                         const QLocale& locale = QLocale());

/// The same while nobody is compared yet.
[[nodiscard]] QString describeNoComparison();

} // namespace quor
