#pragma once

#include <QColor>
#include <QSize>
#include <QString>
#include <QStringList>

class QIcon;
class QWidget;

/// What a window lacks for the eye. Each function gives one line for each fault, and none when all
/// is well. Looked at is what can be seen of the window at the moment.
namespace quor::test {

/// Of two colours, from 1 (the same) to 21 (black and white), as the guidelines for accessible
/// contents reckon it.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// Controls that are smaller than they need to be, texts that are cut or shortened, texts in
/// pictures that touch each other or leave the picture.
[[nodiscard]] QStringList cutFaults(const QWidget& window);

/// Controls that lie on each other or reach out of what they lie in.
[[nodiscard]] QStringList overlapFaults(const QWidget& window);

/// Whether the window cannot be made small enough for a screen (or for what a frame on that screen
/// leaves to the windows in it).
[[nodiscard]] QStringList sizeFaults(const QWidget& window, QSize room);

/// Texts that stand out too little from what they are painted on, as it was painted. Those of
/// controls that are disabled do not count.
[[nodiscard]] QStringList contrastFaults(QWidget& window);

/// The same for pictures of buttons and signs.
[[nodiscard]] QStringList pictureFaults(QWidget& window);

} // namespace quor::test
