#include "toolkit/Drawing.h"

#include <algorithm>

namespace quor {

QRect boxBetween(QPoint corner, QPoint opposite) {
    return {QPoint(std::min(corner.x(), opposite.x()), std::min(corner.y(), opposite.y())),
            QPoint(std::max(corner.x(), opposite.x()), std::max(corner.y(), opposite.y()))};
}

} // namespace quor
