#pragma once

#include <cstdint>

/// Threads take turns with the main thread, so that a run can be repeated: while the main thread
/// does something, all others stand still, and they go on between two of its events, one after the
/// other, until each waits again.
///
/// A thread that begins, is woken, or waits for the disk may also stay away for a while, as it does
/// on a busy machine. How long depends on the seed.
namespace quor::test {

/// From here on, for threads that begin later. The calling thread is the main one.
void takeTurns(std::uint64_t seed);
/// The calling thread is one that nobody waits for.
void standAside();
/// To be called by the main thread between its events.
void giveTurns();
/// Time goes on, as those see it that stay away.
void countTurn();
/// All go on as they like.
void endTurns();

/// A process that this one has started runs, and none has ended whose end was not seen yet.
[[nodiscard]] bool childRuns();
/// Lets the machine work, but no thread of this process go on and no clock.
void pause();

} // namespace quor::test
