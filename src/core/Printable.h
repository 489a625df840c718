#pragma once

#include <QString>

namespace quor {

/// A text as a terminal can take it, in one line: what is a command and no character (escape
/// sequences, line ends, changes of the writing direction) is "?".
[[nodiscard]] QString printable(const QString& text);

} // namespace quor
