#pragma once

#include <QString>

/// Where a run takes place.
namespace quor::test {

/// Every run finds the same: an empty folder for its files, whose name hardly ever changes, an
/// environment of its own, the same addresses in memory, and the same order in hashed containers.
/// For this the program starts itself again; the first call of main.
void beginInPlace(char** arguments);

} // namespace quor::test
