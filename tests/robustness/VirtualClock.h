#pragma once

#include <chrono>
#include <ctime>

/// The clocks as this process sees them stand still until they are told to go on, and begin at the
/// same time in every run. The toolkit's timers then fire by what was done and not by how fast the
/// machine is, so that a run can be repeated. Files that are written are of that time too.
namespace quor::test {

void advanceClock(std::chrono::milliseconds time);

/// The machine's own clock.
[[nodiscard]] std::chrono::nanoseconds realTime();

/// A time of the clock that never goes backwards, for those who wait in the machine's own.
[[nodiscard]] timespec toRealTime(const timespec& time);

} // namespace quor::test
