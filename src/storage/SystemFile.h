#pragma once

#include "core/Biorhythm.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <optional>

/// The .brs file: the members of a system, the calculation date and the display options.
///
/// The number of members, then two lines for each, name and birth date, then ten lines as at the
/// end of a .bio file.
namespace quor {

/// What saving writes.
[[nodiscard]] QByteArray systemFileContent(const Program& program);

/// Writes the open system and the record's date and options to the path and clears `modified`.
/// `systemFilePath` stays as it is.
/// @return nothing on success; else the reason, and the old file and `modified` are untouched
[[nodiscard]] std::optional<QString> saveSystemFile(const QString& path, Program& program);

/// Reads what an open device holds into the system and the record, as `readSystemFile` says.
void readSystem(QIODevice& device, Program& program);

/// Reads the file into the system and the record, field by field: what is missing or damaged keeps
/// its value.
///
/// A count that is missing or damaged keeps its value too, and as many members are read. They
/// replace the old ones, all of them; one whose lines are missing or damaged is nameless, its date
/// 0. A count of 0 or less makes `systemCount` 0 and leaves the old entries where they are, so
/// `systemMembers` holds `systemCount` entries or more. Whatever the file holds, even when it
/// cannot be opened, `systemFilePath` becomes the path and `modified` is cleared.
void readSystemFile(const QString& path, Program& program);

} // namespace quor
