#pragma once

#include "core/Biorhythm.h"
#include "core/SystemMean.h"
#include "views/analysis/DayState.h"
#include "views/analysis/Forecast.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

/// What a report says, from the functions that the windows take their numbers from.
namespace quor {

/// The state of a person or of a system's mean on the calculation date, and what comes.
struct ReportedState {
    StateValues today{};     ///< by `StateItem`, in [-1, 1], not rounded
    StateValues yesterday{}; ///< the same for the day before
    DayState shown;          ///< the values as the window of the day state forms them, in [-10, 10]
    Forecast forecast;
};

struct ReportedPerson {
    QString name;
    std::int32_t birthDay = 0; ///< as a day number
    std::int32_t dayCount = 0; ///< of the calculation date
    ReportedState state;
};

/// The subject of a report: a person, or a system with its members.
struct ReportSubject {
    bool isSystem = false;
    QString name;              ///< the person's; of a system, its file's, without folder and ending
    std::int32_t firstDay = 0; ///< the calculation date as a day number
    std::vector<SystemMember> members; ///< of a person, the person alone

    /// Of each member, on the calculation date.
    [[nodiscard]] std::vector<std::int32_t> dayCounts() const;
};

/// @param program what a file holds, see `openNamedFile`
[[nodiscard]] ReportSubject reportSubject(const Program& program);

[[nodiscard]] ReportedPerson reportedPerson(const SystemMember& member,
                                            std::int32_t calculationDay);

/// The state and the forecast of the mean of a system.
[[nodiscard]] ReportedState reportedMean(const ReportSubject& system);

} // namespace quor
