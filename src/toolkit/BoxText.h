#pragma once

#include <QString>

namespace quor {

/// The text of a box as it fits on a screen: not too many lines, a gap in each line that is longer
/// than anything said on purpose, and places to break in words that would be wider than the box.
/// Whatever is named in it, the buttons stay on the screen. Other texts come back as they are.
[[nodiscard]] QString boxText(const QString& text);

} // namespace quor
