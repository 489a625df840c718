#pragma once

#include <chrono>

/// The clock that never goes backwards, as this process sees it, stands still until it is told to
/// go on. The toolkit's timers then fire by what was done and not by how fast the machine is, so
/// that a run can be repeated.
namespace quor::test {

void advanceClock(std::chrono::milliseconds time);

/// The machine's own clock.
[[nodiscard]] std::chrono::nanoseconds realTime();

} // namespace quor::test
