#pragma once

#include <QList>
#include <QRect>
#include <QSize>

/// Where the windows inside the frame go when they are arranged. Pixels of the frame's inner area.
namespace quor {

/// Wide windows: up to three stand one below the other; more are spread over columns.
[[nodiscard]] QList<QRect> tileHorizontally(QSize area, int count);

/// Tall windows: up to three stand side by side; more are spread over rows.
[[nodiscard]] QList<QRect> tileVertically(QSize area, int count);

/// Minimised windows of one size in rows from the bottom left corner up.
/// @return the top left corners
[[nodiscard]] QList<QPoint> arrangeIcons(QSize area, QSize icon, int count);

} // namespace quor
