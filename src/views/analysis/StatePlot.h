#pragma once

#include <QRect>

#include <cstddef>

namespace quor {

/// What the layout of a bar picture starts from, in the units of the picture (pixels of the screen
/// or of the device, y growing downwards).
struct StatePictureSizes {
    int width = 0;
    int height = 0;
    int textHeight = 0; ///< of a line of text
    int scaleWidth = 0; ///< of the widest number beside the scale lines
    int arrowSize = 0;  ///< of the square that a trend arrow fills
    int gap = 0;        ///< between neighbouring elements
};

/// The bar of one value.
struct BarExtent {
    double height = 0;
    double top = 0;

    friend bool operator==(const BarExtent&, const BarExtent&) = default;
};

/// Where the four bars of a day state lie in their picture: four columns of one width, each with a
/// bar on or below the zero line, a trend arrow to the right of the bar, standing on the zero line,
/// and a caption underneath.
struct StatePlot {
    int left = 0;       ///< x where the scale lines begin and the first column begins
    int topLine = 0;    ///< y of value 10
    int zeroLine = 0;   ///< y of value 0
    int bottomLine = 0; ///< y of value -10
    int columnWidth = 0;
    int barWidth = 0;
    int arrowSize = 0;
    int gap = 0;
    int captionTop = 0;
    int captionHeight = 0;

    [[nodiscard]] int right() const;

    /// Picture units for value 1, in single precision.
    [[nodiscard]] float unit() const;

    /// Height and top of a bar, not rounded. A value of zero or more stands on the zero line, a
    /// negative one hangs from it.
    /// @param value in [-10, 10]
    [[nodiscard]] BarExtent extent(double value) const;

    /// The bar in whole units. A value that rounds to no height gives an empty rectangle.
    /// @param column 0..3
    [[nodiscard]] QRect bar(std::size_t column, double value) const;
    [[nodiscard]] QRect arrow(std::size_t column) const;
    [[nodiscard]] QRect caption(std::size_t column) const;

    friend bool operator==(const StatePlot&, const StatePlot&) = default;

  private:
    [[nodiscard]] int columnLeft(std::size_t column) const;
};

/// The plot in a picture. One too small for what it holds gives lines that coincide and bars
/// without height, never a negative size.
[[nodiscard]] StatePlot layOutState(const StatePictureSizes& sizes);

} // namespace quor
