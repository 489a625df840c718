#include "storage/Cp1252.h"

#include <algorithm>
#include <array>

namespace quor {

namespace {

/// Bytes 0x80 to 0x9F; all others are their own code point.
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr std::size_t firstUpperControl = 0x80;

/// The character of each byte.
constexpr std::array<char16_t, 256> characters = [] {
    std::array<char16_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const bool special =
            byte >= firstUpperControl && byte < firstUpperControl + upperControls.size();
        table[byte] =
            special ? upperControls[byte - firstUpperControl] : static_cast<char16_t>(byte);
    }
    return table;
}();

char encoded(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto found = std::find(upperControls.begin(), upperControls.end(), character);
    if (found == upperControls.end()) {
        return '?';
    }
    return static_cast<char>(firstUpperControl +
                             static_cast<std::size_t>(found - upperControls.begin()));
}

} // namespace

QByteArray toCp1252(const QString& text) {
    const QString composed = text.normalized(QString::NormalizationForm_C);
    QByteArray bytes(composed.size(), Qt::Uninitialized);
    char* end = bytes.data();
    for (qsizetype i = 0; i < composed.size(); ++i) {
        const QChar character = composed[i];
        if (character.isHighSurrogate() && i + 1 < composed.size() &&
            composed[i + 1].isLowSurrogate()) {
            ++i; // one character in two units
        }
        *end++ = encoded(character.unicode());
    }
    bytes.truncate(end - bytes.constData());
    return bytes;
}

QString fromCp1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return QChar(characters[static_cast<unsigned char>(byte)]); });
    return text;
}

} // namespace quor
