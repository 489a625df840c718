#pragma once

#include <QPoint>
#include <QSize>

namespace quor {

/// Where the curves and the text of a compatibility panel lie, in pixels of the panel.
///
/// Day 0, at the left end, is the calculation date. The text has a strip of its own above the
/// curves. A panel too small for both gives curves without height or width, never a negative size.
struct CompatibilityPlot {
    /// N: half the number of days drawn. Twice this shows each of the cycles once in full.
    static constexpr int halfSpan = 20;

    int x0 = 0;        ///< x of day 0
    double dx = 0;     ///< pixels between two days, not rounded, 0 or more
    int yMid = 0;      ///< y of value 0
    int amplitude = 0; ///< pixels for value 1
    QPoint textTopLeft;

    [[nodiscard]] static constexpr int lastDay() { return 2 * halfSpan; }
    [[nodiscard]] int x(int day) const;
    /// @param value in [-1, 1]
    [[nodiscard]] int y(double value) const;
    [[nodiscard]] int right() const { return x(lastDay()); }
    [[nodiscard]] int top() const { return yMid - amplitude; }
    [[nodiscard]] int bottom() const { return yMid + amplitude; }

    friend bool operator==(const CompatibilityPlot&, const CompatibilityPlot&) = default;
};

/// The plot in a panel, with a margin of half a line of text around it and the strip above.
/// @param panel size in pixels
/// @param textHeight of a line of text, in pixels
[[nodiscard]] CompatibilityPlot layOutCompatibility(QSize panel, int textHeight);

/// The size below which a panel does not say and show enough.
/// @param textWidth of the longest line that is written on a panel
[[nodiscard]] QSize smallestCompatibilityPanel(int textWidth, int textHeight);

} // namespace quor
