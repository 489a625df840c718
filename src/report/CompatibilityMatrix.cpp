#include "report/CompatibilityMatrix.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <numeric>
#include <utility>

namespace quor {

CompatibilityMatrix::Percentages::Percentages() {
    // What a period counts in is the remainder alone.
    const auto fill = [](auto& table, double Compatibility::*part) {
        for (std::size_t days = 0; days < table.size(); ++days) {
            table[days] = (*compatibility(0, static_cast<DateValue>(days))).*part;
        }
    };
    fill(physical, &Compatibility::physical);
    fill(emotional, &Compatibility::emotional);
    fill(intellectual, &Compatibility::intellectual);
}

const CompatibilityMatrix::Percentages& CompatibilityMatrix::percentages() {
    static const Percentages only;
    return only;
}

/// The days that can lie between two births, from the highest overall compatibility on; `mostDays`
/// + 1 stands for all that are too many.
const std::vector<std::uint32_t>& CompatibilityMatrix::daysInOrder() {
    static const std::vector<std::uint32_t> inOrder = [] {
        std::vector<float> overall;
        for (std::uint32_t days = 0; days <= mostDays; ++days) {
            overall.push_back(compatibility(0, days).value_or(Compatibility{}).overall);
        }
        overall.push_back(-1);
        std::vector<std::uint32_t> order(overall.size());
        std::iota(order.begin(), order.end(), 0U);
        std::ranges::stable_sort(order, std::greater(),
                                 [&](std::uint32_t days) { return overall[days]; });
        return order;
    }();
    return inOrder;
}

CompatibilityMatrix::CompatibilityMatrix(std::span<const SystemMember> members)
    : m_percentages(&percentages()) {
    if (members.size() > maximumMembers) {
        return;
    }
    m_births.reserve(members.size());
    for (const SystemMember& member : members) {
        m_births.push_back(dayNumber(member.birthDate));
    }
}

void CompatibilityMatrix::visitInOrder(const Visit& visit) const {
    // The days are few: the pairs of each are counted, then every pair goes straight to its place.
    const auto forEachPair = [](std::span<const std::int32_t> births, auto work) {
        for (std::size_t i = 0; i < births.size(); ++i) {
            for (std::size_t j = i + 1; j < births.size(); ++j) {
                work(std::min(daysBetween(births[i], births[j]), mostDays + 1), i, j);
            }
        }
    };
    std::vector<std::uint32_t> places(mostDays + std::size_t{2});
    forEachPair(m_births, [&](std::uint32_t days, std::size_t, std::size_t) { ++places[days]; });
    std::uint32_t count = 0;
    for (const std::uint32_t days : daysInOrder()) {
        count += std::exchange(places[days], count);
    }
    const auto pairs = std::make_unique_for_overwrite<Pair[]>(count); // NOLINT: not filled first
    forEachPair(m_births, [&](std::uint32_t days, std::size_t i, std::size_t j) {
        pairs[places[days]++] = {static_cast<std::uint16_t>(i), static_cast<std::uint16_t>(j)};
    });
    // By now each place is where the pairs of its days end.
    std::uint32_t begin = 0;
    for (const std::uint32_t days : daysInOrder()) {
        const std::uint32_t end = places[days];
        if (end > begin && !visit(compatibilityOf(days), {&pairs[begin], end - begin})) {
            return;
        }
        begin = end;
    }
}

} // namespace quor
