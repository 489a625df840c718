#pragma once

#include "core/Biorhythm.h"
#include "core/SystemMean.h"
#include "views/graph/GraphSeries.h"

#include <cstdint>

namespace quor {

/// The values of one day, in [-1, 1].
struct DayValues {
    double physical = 0;
    double emotional = 0;
    double intellectual = 0;
    double mean = 0;

    friend bool operator==(const DayValues&, const DayValues&) = default;
};

/// Where a graph's window takes its numbers from. It is made with the window and holds copies, so
/// that nothing that happens to the program's data afterwards changes a graph.
class GraphSource {
  public:
    GraphSource() = default;
    GraphSource(const GraphSource&) = delete;
    GraphSource& operator=(const GraphSource&) = delete;
    GraphSource(GraphSource&&) = delete;
    GraphSource& operator=(GraphSource&&) = delete;
    virtual ~GraphSource() = default;

    /// What a span of days is drawn from.
    /// @param daysAround 1 or more
    [[nodiscard]] virtual GraphSeries series(std::int32_t daysAround) const = 0;

    /// What the popup says about a day of that span, counted from its first day.
    [[nodiscard]] virtual DayValues valuesOn(std::int32_t day, std::int32_t daysAround) const = 0;

    /// The span whose first day the curves begin with: the one given, or the one before which the
    /// source was made or restarted.
    [[nodiscard]] virtual std::int32_t startingSpan(std::int32_t daysAround) const {
        return daysAround;
    }

    /// Begins with the first day of that span from now on.
    /// @param daysLater by which the calculation date has moved
    virtual void restart(std::int32_t /*daysAround*/, std::int32_t /*daysLater*/) {}

    /// The series of that span may take long enough to be worth a busy cursor.
    [[nodiscard]] virtual bool takesLong(std::int32_t daysAround) const = 0;
};

/// The current person. The first day drawn has the day count that it had when the window was made,
/// whatever span is shown later, until it is restarted.
class PersonGraph final : public GraphSource {
  public:
    explicit PersonGraph(const Biorhythm& biorhythm);

    [[nodiscard]] GraphSeries series(std::int32_t daysAround) const override;
    [[nodiscard]] DayValues valuesOn(std::int32_t day, std::int32_t daysAround) const override;
    [[nodiscard]] std::int32_t startingSpan(std::int32_t daysAround) const override;
    void restart(std::int32_t daysAround, std::int32_t daysLater) override;
    [[nodiscard]] bool takesLong(std::int32_t daysAround) const override;

  private:
    std::int32_t m_startingSpan;
    std::int32_t m_startDayCount;
};

/// The means of the members that the system has now. Any span is centred on the calculation date.
class SystemGraph final : public GraphSource {
  public:
    /// @param program its system has at least one member
    explicit SystemGraph(const Program& program);

    [[nodiscard]] GraphSeries series(std::int32_t daysAround) const override;
    [[nodiscard]] DayValues valuesOn(std::int32_t day, std::int32_t daysAround) const override;
    [[nodiscard]] bool takesLong(std::int32_t daysAround) const override;

  private:
    SystemMean m_system; ///< its offsets count from the calculation date
};

} // namespace quor
