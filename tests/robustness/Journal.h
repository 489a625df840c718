#pragma once

#include <QString>

#include <cstdint>

/// What a run has done last, and how it ends when something is wrong.
namespace quor::test {

void startJournal(std::uint64_t seed);

/// The next action, in one line. From here on the main thread has five seconds of its own
/// processor time to come back.
void noteAction(const QString& action);
/// The main thread is back in the event loop.
void noteLife();

[[nodiscard]] std::uint64_t actionCount();

/// Each action is printed, because MONKEY_ALOUD is set.
[[nodiscard]] bool isAloud();

/// The run has come to its end, which is after so many actions; a fault from here on is one of the
/// end.
void noteEnd(std::uint64_t limit);

/// Prints what repeats the run.
void printRepetition();

/// Prints the fault, the last thirty actions and what repeats it, and ends the process.
[[noreturn]] void reportFault(const QString& fault);

/// From now on a crash, the report of a sanitizer, a warning of the toolkit, or five seconds
/// without a return to the event loop is a fault.
void watchForFaults();

} // namespace quor::test
