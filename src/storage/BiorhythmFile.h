#pragma once

#include "core/Biorhythm.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <optional>

/// The .bio file: one person, the calculation date and the display options.
///
/// Twelve lines: name, birth date, calculation date, dayIndexPosition, graphDaysAdjust,
/// curveColours[0..3], weeklyColours[0..2].
namespace quor {

/// What saving writes.
[[nodiscard]] QByteArray biorhythmFileContent(const Biorhythm& biorhythm);

/// Writes the record to the path and clears `modified`. `filePath` stays as it is.
/// @return nothing on success; else the reason, and the old file and `modified` are untouched
[[nodiscard]] std::optional<QString> saveBiorhythmFile(const QString& path, Program& program);

/// Reads what an open device holds into the record, field by field: what is missing or damaged
/// keeps its value. Without a name or a birth date nothing is taken.
/// @return nothing when it was taken; else the reason, in the user's language and without a full
/// stop, and the record is untouched
[[nodiscard]] std::optional<QString> readBiorhythm(QIODevice& device, Biorhythm& biorhythm);

/// The same from a file; `filePath` becomes the path and `modified` is cleared. A file that cannot
/// be opened has its reason too, and changes nothing.
[[nodiscard]] std::optional<QString> readBiorhythmFile(const QString& path, Program& program);

/// Takes over what was read into other data: the person, `filePath` and, unless a system is open,
/// the calculation date and the display options. Clears `modified`.
void takeBiorhythm(const Program& read, Program& program);

} // namespace quor
