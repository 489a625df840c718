#pragma once

#include <QString>

#include <functional>

class QWidget;

/// The contract between a window and the help: one call with the help file's path, followed by
/// "::/" and the page for a topic ("<program folder>/Quor.chm::/1nuovo.html"), or the path alone
/// for the help as a whole.
namespace quor {

/// Opens the help beside the window that asks for it. The window stays as it was.
void ShowHelp(QWidget* window, const QString& helpPath);

using HelpViewer = std::function<void(QWidget* window, const QString& helpPath)>;

/// Says who shows the help. Until then, and after an empty function, asking for it does nothing.
void setHelpViewer(HelpViewer viewer);

/// The path that `ShowHelp` takes.
/// @param topic a page ("1nuovo.html"); empty for the help as a whole
[[nodiscard]] QString helpPath(const QString& topic = {});

} // namespace quor
