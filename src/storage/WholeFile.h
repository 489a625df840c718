#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <cstdint>
#include <optional>

/// Files that are written in one go and read as they lie there.
namespace quor {

/// Who may read a file that is written.
enum class Readers : std::uint8_t {
    usual,   ///< as with the old file, or as the user has it for new ones
    onlyUser ///< nobody else
};

/// Writes a whole file in one step: after a failure, as on a full disk, the old file is still
/// there, whole. Nothing but a file makes way for it.
/// @return nothing when the file was written, else the reason in the user's language
[[nodiscard]] std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes,
                                                    Readers readers = Readers::usual);

/// All of the bytes, piece after piece: a device that takes only some of them has a reason, which
/// it tells when it is asked to take the rest. @return false when it does not take all
[[nodiscard]] bool writeAll(QIODevice& device, QByteArrayView bytes);

/// Opens a file for reading; false for anything but a regular file (a folder, a pipe that nobody
/// fills), which could keep the program waiting.
[[nodiscard]] bool openForReading(QFile& file);

/// Why `openForReading` did not open the file, in the user's language: the end of a sentence,
/// without its full stop.
[[nodiscard]] QString whyNotOpened(const QFile& file);

} // namespace quor
