#include "toolkit/CurveStrips.h"

#include <algorithm>
#include <cmath>

namespace quor {

namespace {

/// Pixels, more than any picture has.
constexpr qreal beyondPictures = 1 << 20;

/// The first point that does not lie to the left of x.
std::size_t firstFrom(std::span<const QPoint> points, int x) {
    const auto found =
        std::ranges::partition_point(points, [x](QPoint point) { return point.x() < x; });
    return static_cast<std::size_t>(found - points.begin());
}

/// The place between two columns of the device that is nearest to x.
qreal edgeNear(int x, const QTransform& device) {
    return (std::round(device.m11() * x + device.dx()) - device.dx()) / device.m11();
}

} // namespace

std::vector<CurveStrip> cutIntoStrips(const Curve& curve, const QTransform& device) {
    const std::span<const QPoint> points(curve.points);
    const int reach = 2 * curve.stroke.width; // of a stroke and its ends, generously
    std::vector<CurveStrip> strips;
    qreal length = 0; // of the curve up to the point `measured`
    std::size_t measured = 0;
    qreal left = points.front().x() - beyondPictures;
    for (std::size_t first = 0; first < points.size();) {
        // The strip ends where another one can begin that does not reach back to its first point.
        const std::size_t full = std::min(first + pointsOfStrip, points.size() - 1);
        const int end = std::max(points[full].x(), points[first].x() + reach);
        std::size_t next = firstFrom(points, end);
        std::size_t to = std::min(firstFrom(points, end + reach + 1) + 1, points.size());
        qreal right = edgeNear(end, device);
        if (next + 1 >= points.size()) {
            next = points.size();
            to = next;
            right = points.back().x() + beyondPictures;
        }
        const std::size_t reaching = firstFrom(points, points[first].x() - reach);
        const std::size_t from = reaching > 0 ? reaching - 1 : 0;
        for (; measured < from; ++measured) {
            const QPoint step = points[measured + 1] - points[measured];
            length += std::hypot(step.x(), step.y());
        }
        strips.push_back({.columns = QRectF(QPointF(left, points.front().y() - beyondPictures),
                                            QPointF(right, points.front().y() + beyondPictures)),
                          .points = points.subspan(from, to - from),
                          .begin = length});
        left = right;
        first = next;
    }
    return strips;
}

} // namespace quor
