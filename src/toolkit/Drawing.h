#pragma once

#include "core/Biorhythm.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <variant>
#include <vector>

/// A picture as data.
///
/// Pure functions turn numbers into a `Drawing`; a picture box shows it, the export saves it, tests
/// compare it. Coordinates are pixels, y growing downwards, and colours are 0x00BBGGRR. What comes
/// later in the list covers what comes earlier.
namespace quor {

inline constexpr Colour black = 0x000000;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour gridGrey = 0x969696;

enum class Pattern : std::uint8_t { solid, dash, dashDot, dashDotDot };

struct Stroke {
    Colour colour = black;
    int width = 1;
    Pattern pattern = Pattern::solid;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

/// A straight line, both ends included; never smoothed.
struct Line {
    QPoint from;
    QPoint to;
    Stroke stroke;

    friend bool operator==(const Line&, const Line&) = default;
};

/// Straight segments from point to point; smoothed, and its pattern runs on from one segment into
/// the next.
struct Curve {
    std::vector<QPoint> points;
    Stroke stroke;

    friend bool operator==(const Curve&, const Curve&) = default;
};

/// A filled box; the rectangle's corner pixels belong to it.
struct FilledBox {
    QRect area;
    Colour fill = black;

    friend bool operator==(const FilledBox&, const FilledBox&) = default;
};

/// The outline of a box through the four corners, nothing inside.
struct OutlineBox {
    QRect area;
    Stroke stroke;

    friend bool operator==(const OutlineBox&, const OutlineBox&) = default;
};

/// A line of text in the picture's font.
struct Text {
    QPoint topLeft;
    QString text;
    Colour colour = black;
    bool bold = false;

    friend bool operator==(const Text&, const Text&) = default;
};

using Primitive = std::variant<Line, Curve, FilledBox, OutlineBox, Text>;

struct Drawing {
    std::vector<Primitive> primitives;

    void add(Primitive primitive) { primitives.push_back(std::move(primitive)); }

    friend bool operator==(const Drawing&, const Drawing&) = default;
};

/// The box between two opposite corners in any order, both corner pixels included.
[[nodiscard]] QRect boxBetween(QPoint corner, QPoint opposite);

} // namespace quor
