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
/// keeps its value. While a system is open only the name and the birth date are taken.
void readBiorhythm(QIODevice& device, Program& program);

/// Reads the file into the record, field by field: what is missing or damaged keeps its value.
/// While a system is open only the name and the birth date are taken. Whatever the file holds, even
/// when it cannot be opened, `filePath` becomes the path and `modified` is cleared.
void readBiorhythmFile(const QString& path, Program& program);

} // namespace quor
