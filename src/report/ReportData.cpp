#include "report/ReportData.h"

#include "core/Cycles.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The same values as `stateValues`, on their own scale.
StateValues cycleValues(std::int32_t dayCount) {
    return {cycleValue(dayCount, Period::physical), cycleValue(dayCount, Period::emotional),
            cycleValue(dayCount, Period::intellectual), cycleMean(dayCount)};
}

StateValues meanValues(const SystemMean& mean, std::int32_t day) {
    StateValues values{};
    mean.cycle(Period::physical, day, {&values[0], 1});
    mean.cycle(Period::emotional, day, {&values[1], 1});
    mean.cycle(Period::intellectual, day, {&values[2], 1});
    mean.mean(day, {&values[3], 1});
    return values;
}

} // namespace

std::vector<std::int32_t> ReportSubject::dayCounts() const {
    std::vector<std::int32_t> counts(members.size());
    std::ranges::transform(members, counts.begin(), [this](const SystemMember& member) {
        return dayCount(member.birthDate, firstDay);
    });
    return counts;
}

ReportSubject reportSubject(const Program& program) {
    const AppState& state = program.state;
    ReportSubject subject;
    subject.isSystem = state.systemOpen;
    subject.firstDay = dayNumber(program.biorhythm.calculationDate);
    if (subject.isSystem) {
        subject.name = QFileInfo(state.systemFilePath).completeBaseName();
        subject.members.assign(state.members().begin(), state.members().end());
    } else {
        subject.name = program.biorhythm.name;
        subject.members = {
            {.name = program.biorhythm.name, .birthDate = program.biorhythm.birthDate}};
    }
    return subject;
}

ReportedPerson reportedPerson(const SystemMember& member, std::int32_t calculationDay) {
    const std::int32_t days = dayCount(member.birthDate, calculationDay);
    return {.name = member.name,
            .birthDay = dayNumber(member.birthDate),
            .dayCount = days,
            .state = {.today = cycleValues(days),
                      .yesterday = cycleValues(days - 1),
                      .shown = dayState(days),
                      .forecast = personForecast(days)}};
}

ReportedState reportedMean(const ReportSubject& system) {
    const std::vector<std::int32_t> dayCounts = system.dayCounts();
    const SystemMean mean(dayCounts);
    return {.today = meanValues(mean, 0),
            .yesterday = meanValues(mean, -1),
            .shown = systemDayState(dayCounts),
            .forecast = systemForecast(mean)};
}

} // namespace quor
