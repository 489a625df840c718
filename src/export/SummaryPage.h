#pragma once

#include "core/Biorhythm.h"
#include "export/ExportNames.h"

#include <QByteArray>
#include <QLocale>
#include <QString>

namespace quor {

/// What a summary page shows besides the person's data.
struct SummarySections {
    bool graph = false;
    bool weekly = false;
};

/// The summary page: HTML in pure ASCII, lines ended by CR LF. Other characters are entities, so
/// that every browser shows them, whatever character set it takes the page for. The page names no
/// character set, and its first line has no exclamation mark; both belong to it.
///
/// The screen variant has a spacer before each section and coloured cells in its legends, the
/// print variant no spacer and coloured text, which also shows where paper has no background.
/// @param prefix of the pictures' files, without a folder
[[nodiscard]] QByteArray summaryPage(const Biorhythm& biorhythm, const SummarySections& sections,
                                     const QString& prefix, PageVariant variant,
                                     const QLocale& locale = QLocale());

/// "FF0000" for pure red, 0x000000FF. The number's hexadecimal text, filled up to six digits, is
/// read from its end: the last two digits, the third and fourth, the first two.
[[nodiscard]] QByteArray colourHex(Colour colour);

} // namespace quor
