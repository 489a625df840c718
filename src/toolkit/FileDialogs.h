#pragma once

#include <QColor>
#include <QString>

#include <optional>

class QWidget;

/// File and colour dialogs.
namespace quor {

/// Asks for a file that exists; empty when cancelled.
/// @param filter "Description (*.ext) | *.ext"
/// @param folder where the dialog starts
[[nodiscard]] QString askFileToOpen(QWidget* parent, const QString& title, const QString& filter,
                                    const QString& folder);

/// Asks where to save; a name typed without an ending gets the filter's. Empty when cancelled.
[[nodiscard]] QString askFileToSave(QWidget* parent, const QString& title, const QString& filter,
                                    const QString& folder);

/// Nothing when cancelled.
[[nodiscard]] std::optional<QColor> askColour(QWidget* parent, const QColor& initial,
                                              const QString& title);

} // namespace quor
