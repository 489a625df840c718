#pragma once

#include <cstdint>

class QPainter;
class QWidget;

/// What pictures have in common for those who work with the keyboard or a screen reader.
namespace quor {

enum class PictureKind : std::uint8_t {
    chart,  ///< values over days or side by side
    graphic ///< an arrow, an emblem
};

/// Lets a widget introduce itself to assistive tools as a picture, and not as a box that other
/// controls lie in. What it shows is said by its accessible name and description.
void introduceAsPicture(QWidget& widget, PictureKind kind);

/// A thin line in the highlight's colour along the edge of a widget that has the keyboard.
void paintFocusFrame(QPainter& painter, const QWidget& widget);

} // namespace quor
