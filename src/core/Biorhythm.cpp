#include "core/Biorhythm.h"

#include "core/Clock.h"

#include <algorithm>

namespace quor {

std::span<const SystemMember> AppState::members() const {
    const auto count = std::clamp<std::ptrdiff_t>(systemCount, 0, std::ssize(systemMembers));
    return std::span(systemMembers).first(static_cast<std::size_t>(count));
}

GraphOptions defaultGraphOptions() {
    return {.colours = {0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF},
            .graphDaysAdjust = 0,
            .dayIndexPosition = static_cast<std::uint8_t>(DayIndexPosition::centre)};
}

WeeklyColours defaultWeeklyColours() {
    return {0x0000FF, 0x00FF00, 0x00FFFF};
}

GraphOptions graphOptions(const Biorhythm& biorhythm) {
    GraphOptions options;
    std::copy_n(biorhythm.curveColours.begin(), options.colours.size(), options.colours.begin());
    options.graphDaysAdjust = biorhythm.graphDaysAdjust;
    options.dayIndexPosition = biorhythm.dayIndexPosition;
    return options;
}

void setGraphOptions(Biorhythm& biorhythm, const GraphOptions& options) {
    std::copy(options.colours.begin(), options.colours.end(), biorhythm.curveColours.begin());
    biorhythm.graphDaysAdjust = options.graphDaysAdjust;
    biorhythm.dayIndexPosition = options.dayIndexPosition;
}

WeeklyColours weeklyColours(const Biorhythm& biorhythm) {
    WeeklyColours colours;
    std::copy_n(biorhythm.weeklyColours.begin(), colours.size(), colours.begin());
    return colours;
}

void setWeeklyColours(Biorhythm& biorhythm, const WeeklyColours& colours) {
    std::copy(colours.begin(), colours.end(), biorhythm.weeklyColours.begin());
}

void applyGraphOptionsToSystem(Program& program, const GraphOptions& options) {
    if (program.state.systemOpen) {
        setGraphOptions(program.biorhythm, options);
        program.state.modified = true;
    }
}

void applyWeeklyOptionsToSystem(Program& program, const WeeklyColours& colours) {
    if (program.state.systemOpen) {
        setWeeklyColours(program.biorhythm, colours);
        program.state.modified = true;
    }
}

std::int32_t daysAround(std::int16_t graphDaysAdjust) {
    return std::max(1, GRAPH_BASE_DAYS + graphDaysAdjust);
}

void resetDisplayOptions(Biorhythm& biorhythm) {
    setGraphOptions(biorhythm, defaultGraphOptions());
    setWeeklyColours(biorhythm, defaultWeeklyColours());
}

void resetWork(Program& program) {
    program.biorhythm.calculationDate = today();
    resetDisplayOptions(program.biorhythm);
    program.state.modified = false;
}

void resetToStartUp(Program& program) {
    program = Program{};
    Biorhythm& biorhythm = program.biorhythm;
    biorhythm.showPhysical = true;
    biorhythm.showEmotional = true;
    biorhythm.showIntellectual = true;
    biorhythm.showMean = true;
    biorhythm.enhance = true;
    biorhythm.openGraph = true;
    resetWork(program);
}

std::int32_t dayCountAtGraphStart(const Biorhythm& biorhythm) {
    return dayCountAtGraphStart(biorhythm.birthDate, biorhythm.calculationDate);
}

std::int32_t dayCountAtGraphStart(DateValue birthDate, DateValue calculationDate) {
    return dayCount(birthDate, calculationDate - GRAPH_BASE_DAYS);
}

std::int32_t dayCountOnCalculationDate(const Biorhythm& biorhythm) {
    return biorhythm.daysAtGraphStart + GRAPH_BASE_DAYS;
}

std::int16_t findSystemMember(const AppState& state, const QString& name) {
    const auto members = state.members();
    const auto found = std::ranges::find(members, name, &SystemMember::name);
    return found == members.end() ? std::int16_t{-1}
                                  : static_cast<std::int16_t>(found - members.begin());
}

} // namespace quor
