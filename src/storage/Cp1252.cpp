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
    QByteArray bytes;
    bytes.reserve(composed.size());
    for (qsizetype i = 0; i < composed.size(); ++i) {
        const QChar character = composed[i];
        if (character.isHighSurrogate() && i + 1 < composed.size() &&
            composed[i + 1].isLowSurrogate()) {
            ++i; // one character in two units
        }
        bytes.append(encoded(character.unicode()));
    }
    return bytes;
}

QString fromCp1252(QByteArrayView bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const bool special =
            code >= firstUpperControl && code < firstUpperControl + upperControls.size();
        text.append(QChar(special ? upperControls.at(code - firstUpperControl) : char16_t{code}));
    }
    return text;
}

} // namespace quor
