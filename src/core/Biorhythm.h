#pragma once

#include "core/Dates.h"

#include <QString>

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

/// The data of the running program: plain records, made once and handed to each window.
namespace quor {

/// A colour as the files hold it: 0x00BBGGRR.
using Colour = std::int32_t;

/// Days that a graph shows on each side of the calculation date before `graphDaysAdjust`.
inline constexpr std::int16_t GRAPH_BASE_DAYS = 20;

/// Where the graph writes its day numbers.
enum class DayIndexPosition : std::uint8_t { none = 0, top = 1, centre = 2, bottom = 3 };

/// The elements that the graph's check boxes switch, in the order of the boxes.
enum class GraphElement : std::uint8_t { physical, emotional, intellectual, mean, enhance };

/// One flag for each `GraphElement`.
using ShowFlags = std::array<bool, 5>;

/// The current biorhythm: one person seen around one calculation date, with the display options
/// that go with it.
struct Biorhythm {
    QString name;
    DateValue birthDate = 0;       ///< the origin of every cycle; 0 when there is no person
    DateValue calculationDate = 0; ///< the day around which everything is computed

    std::uint8_t dayIndexPosition = 0;     ///< a `DayIndexPosition`; a file may hold any byte
    std::int16_t graphDaysAdjust = 0;      ///< days on each side of the graph, less GRAPH_BASE_DAYS
    std::array<Colour, 5> curveColours{};  ///< physical, emotional, intellectual, mean, unused
    std::array<Colour, 4> weeklyColours{}; ///< critical, stable, optimal days, unused

    bool openGraph = false;
    bool openWeekly = false;
    bool openStatistics = false;
    bool openForecasts = false;

    bool showPhysical = false;
    bool showEmotional = false;
    bool showIntellectual = false;
    bool showMean = false;
    bool enhance = false;

    /// Day count of the day GRAPH_BASE_DAYS before the calculation date; set by each apply.
    std::int32_t daysAtGraphStart = 0;

    /// A person has been entered or loaded.
    [[nodiscard]] bool isPresent() const { return !name.isEmpty() || birthDate != 0; }

    [[nodiscard]] ShowFlags showFlags() const {
        return {showPhysical, showEmotional, showIntellectual, showMean, enhance};
    }
};

/// A member of a system. It is computed at the calculation date, and shown with the options, of
/// the `Biorhythm` record.
struct SystemMember {
    QString name;
    DateValue birthDate = 0;

    friend bool operator==(const SystemMember&, const SystemMember&) = default;
};

/// As many as a system's file can count.
inline constexpr std::int16_t maximumMembers = std::numeric_limits<std::int16_t>::max();

/// The state of the running program.
struct AppState {
    QString userFolder;
    QString exportFolder;
    QString filePath;        ///< the .bio file that the biorhythm was loaded from; saving keeps it
    QString systemFilePath;  ///< the .brs file that the system was loaded from; saving keeps it
    bool systemOpen = false; ///< entered and loaded biorhythms become members of the system
    bool modified = false;   ///< there are changes that no file holds
    std::int16_t systemCount = 0;
    std::vector<SystemMember> systemMembers; ///< the first `systemCount` count
    bool exportWholeSystem = false;          ///< the export window is to export every member
    QString fastStart;                       ///< the setting as it stands in the store
    std::uint8_t guidedProcedureActive = 0;  ///< 0, or the number of the running tour
    bool guidedStepDone = false;             ///< what the tour's step asks for was done

    /// The members that count.
    [[nodiscard]] std::span<const SystemMember> members() const;
};

struct Program {
    Biorhythm biorhythm;
    AppState state;
};

/// The display options that a graph takes and gives back.
struct GraphOptions {
    std::array<Colour, 4> colours{}; ///< physical, emotional, intellectual, mean
    std::int16_t graphDaysAdjust = 0;
    std::uint8_t dayIndexPosition = 0;

    friend bool operator==(const GraphOptions&, const GraphOptions&) = default;
};

/// The graph options of a fresh biorhythm.
[[nodiscard]] GraphOptions defaultGraphOptions();

/// The colours of a week's critical, stable and optimal days.
using WeeklyColours = std::array<Colour, 3>;

/// The colours of a fresh biorhythm's week.
[[nodiscard]] WeeklyColours defaultWeeklyColours();

[[nodiscard]] GraphOptions graphOptions(const Biorhythm& biorhythm);
void setGraphOptions(Biorhythm& biorhythm, const GraphOptions& options);

[[nodiscard]] WeeklyColours weeklyColours(const Biorhythm& biorhythm);
void setWeeklyColours(Biorhythm& biorhythm, const WeeklyColours& colours);

/// Take options over for the open system, whose members share those of the record, and mark its
/// data as modified. Without a system they do nothing.
void applyGraphOptionsToSystem(Program& program, const GraphOptions& options);
void applyWeeklyOptionsToSystem(Program& program, const WeeklyColours& colours);

/// Days that a graph shows on each side of the calculation date. A stored value that gives less
/// than one day, which only a damaged file holds, counts as one day.
[[nodiscard]] std::int32_t daysAround(std::int16_t graphDaysAdjust);

/// Gives the span, the day numbers and the colours their defaults and touches nothing else.
void resetDisplayOptions(Biorhythm& biorhythm);

/// Gives the calculation date, the display options and `modified` the values that a start gives
/// them: what was closed leaves nothing to what is opened next.
void resetWork(Program& program);

/// Puts the program's data into the state in which every start finds it.
void resetToStartUp(Program& program);

/// Day count, for the record's person or one born on that day, of the day GRAPH_BASE_DAYS before
/// the calculation date.
[[nodiscard]] std::int32_t dayCountAtGraphStart(const Biorhythm& biorhythm);
[[nodiscard]] std::int32_t dayCountAtGraphStart(DateValue birthDate, DateValue calculationDate);

/// Day count of the calculation date, as `daysAtGraphStart` has it.
[[nodiscard]] std::int32_t dayCountOnCalculationDate(const Biorhythm& biorhythm);

/// Index of the first member with exactly this name (letter case counts), or -1.
[[nodiscard]] std::int16_t findSystemMember(const AppState& state, const QString& name);

} // namespace quor
