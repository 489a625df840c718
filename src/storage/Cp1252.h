#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Code page 1252, the 8-bit character set of the files. (Qt knows it only where it was built with
/// a library of character sets.)
namespace quor {

/// A character that the code page lacks becomes "?", one for each character. Letters and the
/// accents that follow them are composed first, so that "e" with a combining accent is kept.
[[nodiscard]] QByteArray toCp1252(const QString& text);

/// Every byte has a character; the five that the code page leaves open are control characters.
[[nodiscard]] QString fromCp1252(QByteArrayView bytes);

} // namespace quor
