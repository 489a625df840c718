#pragma once

#include "Measure.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace quor::bench {

/// What is printed of repetitions that belong together.
enum class Printed { all, median };

/// Prints the runs, and keeps the processor time of each repetition for a comparison at the end.
class Keeper : public benchmark::ConsoleReporter {
  public:
    explicit Keeper(Printed printed)
        : ConsoleReporter(OO_Tabular)
        , m_printed(printed) {}

    /// Newer versions of the library tell a skipped benchmark and a failed one apart.
    template<typename AnyRun> [[nodiscard]] static bool isBroken(const AnyRun& run) {
        if constexpr (requires { run.error_occurred; }) {
            return run.error_occurred;
        } else {
            return run.skipped != decltype(run.skipped){};
        }
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            m_failed = m_failed || isBroken(run);
            if (run.run_type == Run::RT_Iteration) {
                m_times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
            }
            if (m_printed == Printed::all || run.repetitions == 1 ||
                run.aggregate_name == "median") {
                shown.push_back(run);
            }
        }
        if (!shown.empty()) {
            ConsoleReporter::ReportRuns(shown);
        }
    }

    /// In the benchmark's unit; 0 when it was not run.
    [[nodiscard]] double medianOf(const std::string& name) const {
        const auto found = m_times.find(name);
        return found == m_times.end() ? 0 : median(found->second);
    }

    /// A benchmark has said that something is wrong.
    [[nodiscard]] bool hasFailed() const { return m_failed; }

  private:
    Printed m_printed;
    bool m_failed = false;
    std::map<std::string, std::vector<double>> m_times;
};

} // namespace quor::bench
