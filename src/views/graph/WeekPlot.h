#pragma once

#include <QSize>

#include <array>
#include <cstdint>
#include <optional>

namespace quor {

/// Days from Monday to Sunday.
inline constexpr int daysInWeek = 7;

/// Where one row of the weekly state lies in its picture, in pixels.
struct WeekPlot {
    QSize picture;         ///< outer size of the picture
    int weekLeft = 0;      ///< x of Monday's left edge
    int weekBaseline = 0;  ///< y of value 0
    int cellWidth = 0;     ///< width of a day, 0 or more
    int weekAmplitude = 0; ///< pixels for value 1, 0 or more

    /// @param days since the start of Monday, in halves
    [[nodiscard]] int x(double days) const;
    [[nodiscard]] int right() const { return weekLeft + daysInWeek * cellWidth; }
    /// @param value in [-1, 1]
    [[nodiscard]] int y(double value) const;
    [[nodiscard]] int top() const { return weekBaseline - weekAmplitude; }
    /// The lower end of the bars and the upper edge of the line of text below them.
    [[nodiscard]] int bottom() const { return weekBaseline + weekAmplitude; }
    /// Pixels below the bars.
    [[nodiscard]] int room() const { return picture.height() - bottom(); }

    friend bool operator==(const WeekPlot&, const WeekPlot&) = default;
};

/// The plot in a picture: a margin of a fortieth of the width and of the height all round, and
/// below and to the right a reserve of 200 twips (`toolkit/Twips.h`). Below the bars that leaves
/// two reserves and a margin: room for a line of text, or for two in a small font. A picture too
/// small for its margins gets bars without a size.
/// @param picture outer size in pixels
[[nodiscard]] WeekPlot layOutWeek(QSize picture);

/// Pixels from the line of the names down to a label on a line of its own: a line of text, and a
/// little more where there is room.
[[nodiscard]] int labelDrop(const WeekPlot& plot, int textHeight);

/// How large the texts of a row are in pixels.
struct WeekTextSizes {
    int height = 0; ///< of a line of text
    int label = 0;
    std::array<int, daysInWeek> names{}; ///< of the weekdays, Monday first
};

/// x at which a label of a width stands in the middle of the picture.
[[nodiscard]] int labelLeft(const WeekPlot& plot, int labelWidth);

/// Where the label of a row stands: on the line of the weekdays' names, or on one of its own below
/// them.
enum class WeekLines : std::uint8_t { one, two };

/// The lines in which the texts of a row fit, so that no text touches the one beside it and none is
/// cut off: one if that is enough, else two; nothing when they do not fit either way.
[[nodiscard]] std::optional<WeekLines> fittingLines(const WeekPlot& plot,
                                                    const WeekTextSizes& sizes);

} // namespace quor
