#include "toolkit/FileDialogs.h"

#include "toolkit/Dialogs.h"

namespace quor {

QString askFileToOpen(QWidget* parent, const QString& title, const QString& filter,
                      const QString& folder) {
    return dialogHost().file(
        parent, {.mode = FileMode::open, .title = title, .filter = filter, .folder = folder});
}

QString askFileToSave(QWidget* parent, const QString& title, const QString& filter,
                      const QString& folder) {
    return dialogHost().file(
        parent, {.mode = FileMode::save, .title = title, .filter = filter, .folder = folder});
}

std::optional<QColor> askColour(QWidget* parent, const QColor& initial, const QString& title) {
    return dialogHost().colour(parent, initial, title);
}

} // namespace quor
