#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdint>
#include <optional>

/// Files that are written in one go and read as they lie there.
namespace quor {

/// Who may read a file that is new or takes an old one's place.
enum class Readers : std::uint8_t {
    asBefore, ///< of the old file; whom the system lets, of a new one
    userOnly,
};

/// Writes a whole file in one step: after a failure the old file is still there, whole. A full disk
/// is a failure.
/// @return nothing when the file was written, else the reason in the user's language
[[nodiscard]] std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes,
                                                    Readers readers = Readers::asBefore);

/// Opens a file for reading; false for anything but a regular file (a folder, a pipe that nobody
/// fills), which could keep the program waiting.
[[nodiscard]] bool openForReading(QFile& file);

} // namespace quor
