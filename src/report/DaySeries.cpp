#include "report/DaySeries.h"

#include "core/Cycles.h"

#include <span>
#include <utility>

namespace quor {

DaySeries::DaySeries(std::vector<std::int32_t> dayCounts)
    : m_mean(std::move(dayCounts)) {}

const DaySeries::Block& DaySeries::values(std::int32_t first, std::size_t length) {
    auto& [physical, emotional, intellectual, mean] = m_block;
    m_mean.cycle(Period::physical, first, std::span(physical).first(length));
    m_mean.cycle(Period::emotional, first, std::span(emotional).first(length));
    m_mean.cycle(Period::intellectual, first, std::span(intellectual).first(length));
    if (m_mean.members() == 1) {
        // The same sum, without the sines that the table of means takes to fill.
        for (std::size_t day = 0; day < length; ++day) {
            mean[day] = meanOfCycles(physical[day], emotional[day], intellectual[day]);
        }
    } else {
        m_mean.mean(first, std::span(mean).first(length));
    }
    return m_block;
}

} // namespace quor
