#include "report/TextCharset.h"

#include <QList>

#include <clocale>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is not in the C++ one

namespace quor {

namespace {

/// What the locale calls its set of characters.
QByteArray codeset() {
    // The toolkit takes UTF-8 for granted; the locale is asked itself, and not set for others.
    if (const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr)) {
        QByteArray name(nl_langinfo_l(CODESET, locale));
        freelocale(locale);
        return name;
    }
    // One that is not installed: terminals go by its name all the same.
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const QByteArray name = qgetenv(variable);
        if (!name.isEmpty()) {
            const QByteArray afterDot = name.mid(name.indexOf('.') + 1);
            return name.contains('.') ? afterDot.split('@').constFirst() : QByteArray();
        }
    }
    return {};
}

bool fits(char32_t character, TextCharset charset) {
    return character < (charset == TextCharset::latin1 ? 0x100U : 0x80U);
}

} // namespace

TextCharset terminalCharset() {
    const QByteArray name = codeset().toUpper();
    if (name == "UTF-8" || name == "UTF8") {
        return TextCharset::utf8;
    }
    return name == "ISO-8859-1" || name == "ISO-8859-15" ? TextCharset::latin1 : TextCharset::ascii;
}

QByteArray encodeText(const QString& text, TextCharset charset) {
    if (charset == TextCharset::utf8) {
        return text.toUtf8();
    }
    QByteArray bytes;
    for (const char32_t character : text.toUcs4()) {
        char32_t best = character;
        if (!fits(best, charset)) {
            // The letter that an accented one begins with when it is taken apart.
            const QList<uint> parts =
                QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD).toUcs4();
            best = parts.isEmpty() ? character : parts.constFirst();
        }
        bytes.append(fits(best, charset) ? static_cast<char>(best) : '?');
    }
    return bytes;
}

} // namespace quor
