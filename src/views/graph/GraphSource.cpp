#include "views/graph/GraphSource.h"

#include "core/Cycles.h"

namespace quor {

namespace {

/// Additions, one for each member and day, that are still done before anybody notices.
constexpr std::size_t unnoticed = 5'000'000;

} // namespace

PersonGraph::PersonGraph(const Biorhythm& biorhythm)
    : m_startingSpan(daysAround(biorhythm.graphDaysAdjust))
    , m_startDayCount(dayCountOnCalculationDate(biorhythm) - m_startingSpan) {}

GraphSeries PersonGraph::series(std::int32_t daysAround) const {
    return personSeries(m_startDayCount, daysAround);
}

DayValues PersonGraph::valuesOn(std::int32_t day, std::int32_t /*daysAround*/) const {
    const std::int32_t dayCount = m_startDayCount + day;
    return {.physical = cycleValue(dayCount, Period::physical),
            .emotional = cycleValue(dayCount, Period::emotional),
            .intellectual = cycleValue(dayCount, Period::intellectual),
            .mean = cycleMean(dayCount)};
}

std::int32_t PersonGraph::startingSpan(std::int32_t /*daysAround*/) const {
    return m_startingSpan;
}

void PersonGraph::restart(std::int32_t daysAround, std::int32_t daysLater) {
    m_startDayCount += m_startingSpan - daysAround + daysLater;
    m_startingSpan = daysAround;
}

bool PersonGraph::takesLong(std::int32_t /*daysAround*/) const {
    return false;
}

SystemGraph::SystemGraph(const Program& program)
    : m_system(memberDayCounts(program.state, program.biorhythm.calculationDate)) {}

GraphSeries SystemGraph::series(std::int32_t daysAround) const {
    return systemSeries(m_system, daysAround);
}

DayValues SystemGraph::valuesOn(std::int32_t day, std::int32_t daysAround) const {
    const std::int32_t offset = day - daysAround;
    DayValues values;
    m_system.cycle(Period::physical, offset, {&values.physical, 1});
    m_system.cycle(Period::emotional, offset, {&values.emotional, 1});
    m_system.cycle(Period::intellectual, offset, {&values.intellectual, 1});
    m_system.mean(offset, {&values.mean, 1});
    return values;
}

bool SystemGraph::takesLong(std::int32_t daysAround) const {
    return m_system.members() * static_cast<std::size_t>(daysAround) > unnoticed / 2;
}

} // namespace quor
