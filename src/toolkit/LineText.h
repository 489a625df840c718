#pragma once

#include <QString>

namespace quor {

/// At most so many of a text's first letters, and "…" where there were more. No pair of surrogates
/// is cut.
[[nodiscard]] QString beginningOf(const QString& text, qsizetype longest);

/// The same for a text that is cut in its middle: beginning and end.
[[nodiscard]] QString endsOf(const QString& text, qsizetype longest);

/// The text of a title or of a status line: its beginning, where it is longer than any screen is
/// wide. To find the place where such a text is to be cut the toolkit measures the whole of it,
/// again whenever it draws it, and a file may bring a name of 64 KiB. Other texts come back as they
/// are.
[[nodiscard]] QString lineText(const QString& text);

/// The same for a line whose end matters as well.
[[nodiscard]] QString lineEnds(const QString& text);

} // namespace quor
