#include "views/graph/DaysEntry.h"

#include "core/Biorhythm.h"
#include "core/Rounding.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace quor {

double leadingNumber(const QString& text) {
    const std::string typed = text.trimmed().toStdString();
    const bool plus = typed.starts_with('+');
    const char* begin = typed.data() + (plus ? 1 : 0);
    const char* end = typed.data() + typed.size();
    // The library also reads words ("inf", "nan"); a number here begins with a digit or a point.
    const bool minus = !plus && begin != end && *begin == '-';
    const char* digits = begin + (minus ? 1 : 0);
    if (digits == end || !((*digits >= '0' && *digits <= '9') || *digits == '.')) {
        return 0;
    }
    double number = 0;
    const auto result = std::from_chars(begin, end, number);
    if (result.ec == std::errc::result_out_of_range) {
        // Beyond a double at one of its ends. Only a negative exponent leads to the small one.
        const std::string_view consumed(begin, result.ptr);
        const bool tiny = consumed.find("e-") != std::string_view::npos ||
                          consumed.find("E-") != std::string_view::npos;
        return tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return number;
}

std::optional<DaysEntry> parseDays(const QString& text) {
    const auto days = toInt16(leadingNumber(text));
    if (!days) {
        return std::nullopt;
    }
    const auto adjust = toInt16(static_cast<double>(*days) - GRAPH_BASE_DAYS);
    if (!adjust) {
        return std::nullopt;
    }
    if (*days < 1) {
        return DaysEntry{.graphDaysAdjust = 1 - GRAPH_BASE_DAYS, .tooSmall = true};
    }
    return DaysEntry{.graphDaysAdjust = *adjust, .tooSmall = false};
}

} // namespace quor
