#pragma once

/// Twips, in which lengths of pictures are given where they come from paper: 1440 to the inch. A
/// pixel is fifteen of them whatever the screen (96 pixels to the inch), so that a picture has one
/// geometry on the screen, in a file and on paper.
namespace quor {

inline constexpr double twipsPerInch = 1440;
inline constexpr double twipsPerPixel = twipsPerInch / 96;

} // namespace quor
