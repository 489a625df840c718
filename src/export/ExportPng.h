#pragma once

#include "toolkit/Drawing.h"

#include <QFont>
#include <QSize>
#include <QString>

#include <cstdint>

class QImage;

namespace quor {

/// Result codes of a picture's export.
inline constexpr std::uint8_t pngWritten = 0;
inline constexpr std::uint8_t pngOutOfMemory = 1;   ///< or a picture of more than 512 MiB
inline constexpr std::uint8_t pngNoPicture = 2;     ///< without a size, or too large to paint on
inline constexpr std::uint8_t pngHeaderFailed = 3;  ///< the file's first bytes cannot be written
inline constexpr std::uint8_t pngFileFailed = 4;    ///< the file cannot be created
inline constexpr std::uint8_t pngPictureFailed = 5; ///< the rest cannot be written

/// Writes a picture as a PNG file: red, green and blue, opaque, nothing in it but the picture.
///
/// The file is put in its place in one step when it is whole. After a failure there is no new file,
/// and an old one is as it was.
/// @return one of the codes above
[[nodiscard]] std::uint8_t ExportPng(const QImage& image, const QString& fileName);

/// Paints a drawing on white, one pixel of the picture for one of the drawing.
/// @param image null after a failure
/// @return `pngWritten`, `pngNoPicture` or `pngOutOfMemory`
[[nodiscard]] std::uint8_t paintPicture(const Drawing& drawing, const QFont& font, QSize size,
                                        QImage& image);

/// Paints a drawing and writes it.
[[nodiscard]] std::uint8_t ExportPng(const Drawing& drawing, const QFont& font, QSize size,
                                     const QString& fileName);

/// What a result is called; empty for a code that does not exist.
[[nodiscard]] QString resultText(std::uint8_t code);

} // namespace quor
