#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace quor {

/// What a terminal can show.
enum class TextCharset : std::uint8_t {
    ascii,  ///< accents are left away
    latin1, ///< ISO 8859-1 and its relatives: accents, but neither arrows nor bars
    utf8,
};

/// That of the locale which LC_ALL, LC_CTYPE or LANG name.
[[nodiscard]] TextCharset terminalCharset();

/// A character that the set lacks is the letter without its accent, or "?".
[[nodiscard]] QByteArray encodeText(const QString& text, TextCharset charset);

} // namespace quor
