#pragma once

#include "core/Biorhythm.h"
#include "core/Cycles.h"
#include "views/analysis/Compatibility.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace quor {

/// The compatibility of every two members of a system, in order.
class CompatibilityMatrix {
  public:
    /// So many members at most are compared: two million pairs.
    static constexpr std::size_t maximumMembers = 2000;

    /// Two different members by their index, the first below the second.
    struct Pair {
        std::uint16_t first;
        std::uint16_t second;

        friend bool operator==(const Pair&, const Pair&) = default;
    };

    /// @param members at most `maximumMembers`; of more, there are no pairs
    explicit CompatibilityMatrix(std::span<const SystemMember> members);

    /// To the last bit that of `compatibility`; nothing where births lie too far apart.
    [[nodiscard]] std::optional<Compatibility> at(Pair pair) const {
        return compatibilityOf(daysBetween(m_births[pair.first], m_births[pair.second]));
    }

    /// Takes some pairs of one and the same compatibility; false when no more are wanted.
    using Visit = std::function<bool(const std::optional<Compatibility>&, std::span<const Pair>)>;

    /// All pairs, the highest overall compatibility first. Of equal ones those whose births lie
    /// nearer come first, then the members' order counts; those too far apart are last.
    void visitInOrder(const Visit& visit) const;

  private:
    /// Days between two births that `compatibility` still compares.
    static constexpr std::uint32_t mostDays = std::numeric_limits<std::int16_t>::max();

    template<Period period>
    using Table = std::array<double, static_cast<std::size_t>(quor::days(period))>;

    /// The percentages by the remainder of the days between two births.
    struct Percentages {
        Table<Period::physical> physical{};
        Table<Period::emotional> emotional{};
        Table<Period::intellectual> intellectual{};

        Percentages();
    };

    [[nodiscard]] std::optional<Compatibility> compatibilityOf(std::uint32_t days) const {
        if (days > mostDays) {
            return std::nullopt;
        }
        const Percentages& by = *m_percentages;
        Compatibility value{.physical = by.physical[days % by.physical.size()],
                            .emotional = by.emotional[days % by.emotional.size()],
                            .intellectual = by.intellectual[days % by.intellectual.size()]};
        value.overall =
            static_cast<float>((value.physical + value.emotional + value.intellectual) / 3);
        return value;
    }

    static std::uint32_t daysBetween(std::int32_t birth, std::int32_t other) {
        return static_cast<std::uint32_t>(std::abs(birth - other));
    }
    static const Percentages& percentages();
    static const std::vector<std::uint32_t>& daysInOrder();

    std::vector<std::int32_t> m_births; ///< as day numbers
    const Percentages* m_percentages;
};

} // namespace quor
