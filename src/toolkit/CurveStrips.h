#pragma once

#include "toolkit/Drawing.h"

#include <QRectF>
#include <QTransform>

#include <span>
#include <vector>

/// Long curves, cut into parts that are painted one by one.
///
/// The toolkit fills the outline of a stroke that is wider than a pixel of the device in one go,
/// and the time for that grows with the square of the edges that cross one row of pixels: seconds
/// for a curve of some hundred days on a large picture.
namespace quor {

/// A part of a curve. Clipped to its columns and painted with its pattern taken up where it is, it
/// gives every pixel there what the whole curve gives it.
struct CurveStrip {
    /// The columns of the picture that belong to this strip alone, and all their height. They begin
    /// and end between two pixels of the device.
    QRectF columns;
    /// As much of the curve as reaches into them.
    std::span<const QPoint> points;
    /// Length of the curve up to the first of these points, in pixels of the drawing.
    qreal begin = 0;
};

/// Points that a strip begins with; a curve of a few times as many is not worth cutting.
inline constexpr std::size_t pointsOfStrip = 16;

/// @param curve its points run from left to right; it outlives the strips
/// @param device from the drawing to the device, without a turn or a shear, and not mirrored
[[nodiscard]] std::vector<CurveStrip> cutIntoStrips(const Curve& curve, const QTransform& device);

} // namespace quor
