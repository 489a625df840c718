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

/// Reads what an open device holds into the system and the record, field by field: what is missing
/// or damaged keeps its value.
///
/// The members replace the old ones, all of them; one whose lines are missing or damaged is
/// nameless, its date 0. A count of 0 leaves the old entries where they are, so `systemMembers`
/// holds `systemCount` entries or more. Without a count of 0 to `maximumMembers` nothing is taken.
/// @return nothing when it was taken; else the reason, in the user's language and without a full
/// stop, and the program is untouched
[[nodiscard]] std::optional<QString> readSystem(QIODevice& device, Program& program);

/// The same from a file; `systemFilePath` becomes the path and `modified` is cleared. A file that
/// cannot be opened has its reason too, and changes nothing.
[[nodiscard]] std::optional<QString> readSystemFile(const QString& path, Program& program);

/// Takes over what was read into other data: the members, `systemFilePath`, the calculation date
/// and the display options. Clears `modified`; opening the system is the caller's part.
void takeSystem(Program read, Program& program);

} // namespace quor
