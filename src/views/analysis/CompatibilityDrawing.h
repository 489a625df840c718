#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Drawing.h"
#include "views/analysis/CompatibilityPlot.h"
#include "views/analysis/DayState.h"

#include <QSize>

#include <cstdint>

namespace quor {

/// The ground of a panel: dark, since the text is white, and without a hue, since the curves may
/// have any.
inline constexpr Colour panelGround = 0x202020;

/// What one panel compares.
struct ComparedCurves {
    StateItem item = StateItem::mean; ///< which curve
    std::int32_t firstDayCount = 0;   ///< of the first person on the calculation date
    std::int32_t secondDayCount = 0;
    Colour firstColour = black;
    QString text; ///< the line above the curves
};

/// The second person's colour: the first one's number less 50, whatever that does to its red, green
/// and blue part. Only the 24 bits of the colour count, before and after.
[[nodiscard]] Colour secondPersonColour(Colour firstColour);

/// A panel before two persons are chosen: its ground.
[[nodiscard]] Drawing drawEmptyPanel(QSize panel);

/// A panel, in its order: ground, the curve of the first and of the second person, zero line, day
/// grid, frame, text.
///
/// The angle of day k is angleStep × (phase of the calculation date + k), and the mean is
/// ((physical + emotional) + intellectual) / 3 of a day. Each curve is drawn three times, shifted
/// by one pixel up and left, not at all, and by one pixel down and right.
[[nodiscard]] Drawing drawCompatibilityPanel(const ComparedCurves& curves, QSize panel,
                                             const CompatibilityPlot& plot);

} // namespace quor
