#pragma once

#include <QString>

namespace quor {

/// A tooltip that says a text as it is, with its spaces and with what could be taken for markup,
/// and breaks it into lines where it is long. Nothing for an empty text.
[[nodiscard]] QString toolTipText(const QString& text);

} // namespace quor
