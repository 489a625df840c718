#pragma once

#include "core/Biorhythm.h"
#include "export/ExportNames.h"

#include <QByteArray>
#include <QLocale>
#include <QString>

#include <cstdint>

namespace quor {

/// What a summary page shows besides the person's data.
struct SummarySections {
    bool graph = false;
    bool weekly = false;
};

/// The summary page: HTML in code page 1252, lines ended by CR LF. The page names no character
/// set, and its first line has no exclamation mark; both belong to it.
///
/// The screen variant has a spacer before each section and coloured cells in its legends, the
/// print variant no spacer and coloured text, which also shows where paper has no background.
/// In the name, `&`, `<` and `>` are entities.
/// @param prefix of the pictures' files, without a folder
[[nodiscard]] QByteArray summaryPage(const Biorhythm& biorhythm, const SummarySections& sections,
                                     const QString& prefix, PageVariant variant,
                                     const QLocale& locale = QLocale());

/// "FF0000" for pure red, 0x000000FF. The number's hexadecimal text, filled up to six digits, is
/// read from its end: the last two digits, the third and fourth, the first two.
[[nodiscard]] QByteArray colourHex(Colour colour);

/// What becomes of letters beyond ASCII in an address that the page's character set has.
enum class Accents : std::uint8_t { kept, encoded };

/// A file beside the page as the address of a picture: the name as it stands, with these
/// exceptions. What would end or change an address ("%", "#", "?", a blank in front), a character
/// that the page's character set lacks, and accents where asked for, are percent-encoded in UTF-8;
/// an ampersand is an entity.
[[nodiscard]] QByteArray pictureAddress(const QString& fileName, Accents accents);

/// The page does not name its character set. A browser guesses it from the letters beyond ASCII and
/// guesses wrong when a name has several ("Mosè D'Aloè" is taken for Czech). The addresses of such
/// a page do without them, so that its pictures are found all the same.
[[nodiscard]] Accents accentsInAddresses(const QString& name, const QString& prefix);

} // namespace quor
