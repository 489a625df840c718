#pragma once

#include "core/Biorhythm.h"

#include <QString>

#include <optional>

/// The .brs file: the members of a system, the calculation date and the display options.
///
/// The number of members, then name and birth date of each, then what follows the birth date in a
/// .bio file.
namespace quor {

/// Writes the open system to the path and clears `modified`. `systemFilePath` stays as it is.
/// @return nothing on success; else the reason, and the old file and `modified` are untouched
[[nodiscard]] std::optional<QString> saveSystemFile(const QString& path, Program& program);

/// Reads the file into the program's data, field by field: what is missing or damaged keeps its
/// value. The members that were there are replaced, unless the file counts none. Whatever the file
/// holds, even when it cannot be opened, `systemFilePath` becomes the path and `modified` is
/// cleared.
void readSystemFile(const QString& path, Program& program);

} // namespace quor
