#pragma once

class QString;
class QWidget;

namespace quor {

/// Gives a window a title that is shown letter by letter, for titles that hold what a person typed
/// or a file brought. Qt takes "[*]" in a title for the place of a mark for unsaved data, and hides
/// it. A title longer than any screen is wide is cut (`lineText`).
void setTitle(QWidget& window, const QString& text);

/// The title as it is shown.
[[nodiscard]] QString titleOf(const QWidget& window);

} // namespace quor
