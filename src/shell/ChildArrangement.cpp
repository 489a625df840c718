#include "shell/ChildArrangement.h"

#include <algorithm>
#include <cmath>

namespace quor {

namespace {

/// Columns of windows: as many as the whole part of the root of the count, the last ones with a
/// window more where they do not divide it.
QList<QRect> tile(QSize area, int count) {
    QList<QRect> places;
    if (count < 1) {
        return places;
    }
    const int columns = static_cast<int>(std::sqrt(count));
    const int shortColumns = columns - count % columns;
    for (int column = 0; column < columns; ++column) {
        const int rows = count / columns + (column >= shortColumns ? 1 : 0);
        const int left = area.width() * column / columns;
        const int right = area.width() * (column + 1) / columns;
        for (int row = 0; row < rows; ++row) {
            const int top = area.height() * row / rows;
            const int bottom = area.height() * (row + 1) / rows;
            places.append(QRect(left, top, right - left, bottom - top));
        }
    }
    return places;
}

} // namespace

QList<QRect> tileHorizontally(QSize area, int count) {
    return tile(area, count);
}

QList<QRect> tileVertically(QSize area, int count) {
    QList<QRect> places = tile(area.transposed(), count);
    for (QRect& place : places) {
        place = QRect(place.y(), place.x(), place.height(), place.width());
    }
    return places;
}

QList<QPoint> arrangeIcons(QSize area, QSize icon, int count) {
    const int perRow = std::max(1, area.width() / std::max(1, icon.width()));
    QList<QPoint> places;
    for (int i = 0; i < count; ++i) {
        places.append(
            {(i % perRow) * icon.width(), area.height() - (i / perRow + 1) * icon.height()});
    }
    return places;
}

} // namespace quor
