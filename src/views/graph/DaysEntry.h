#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace quor {

/// The number at the front of a typed text, with a decimal point; 0 when the text does not begin
/// with one.
[[nodiscard]] double leadingNumber(const QString& text);

/// What the box "Giorni attorno alla data di calcolo" says, as the options hold it.
struct DaysEntry {
    std::int16_t graphDaysAdjust = 0;
    bool tooSmall = false; ///< less than one day was typed, and one day is what counts
};

/// @return nothing when the number, or its difference with GRAPH_BASE_DAYS, is beyond 16 bits
[[nodiscard]] std::optional<DaysEntry> parseDays(const QString& text);

} // namespace quor
