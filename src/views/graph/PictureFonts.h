#pragma once

#include "views/graph/GraphPlot.h"

#include <QFont>

#include <vector>

/// Fonts for texts in pictures, whose room does not grow with them.
namespace quor {

/// A font and smaller ones of it, down to the smallest that is worth reading (6 points).
[[nodiscard]] std::vector<QFont> sizesOf(const QFont& font);

/// The largest of these in which the number of a day stays clear of the next one. Where days are
/// too narrow for any, the smallest.
[[nodiscard]] QFont fontOfNumbers(const QFont& font, const GraphPlot& plot);

} // namespace quor
