#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QSize>

#include <optional>
#include <span>

/// Pictures of the frame's toolbar as pixels, in the sizes that they have on most screens. They are
/// made of the drawings while the program is built (RasterPictures.cpp): reading and drawing them
/// at every start took a twentieth of its time.
///
/// A pixel's colour is linear in the colour of the lines, which is that of the desktop's texts. So
/// a pixel is five bytes: blue, green, red and opacity with black lines, multiplied by the opacity,
/// and how much of the lines' colour is added to each of the three, of 255.
namespace quor {

constexpr int rasterBytesPerPixel = 5;

struct PictureRaster {
    const char* name; ///< "Stampa"
    int size;         ///< pixels in width and height
    const char* pixels;
};

/// The generated table.
[[nodiscard]] std::span<const PictureRaster> pictureRasters();

/// @param name "Stampa"
/// @param size in pixels
/// @param line colour of the lines
/// @param opacity of the whole, of 255
/// @return none where there is no such picture in this size
[[nodiscard]] std::optional<QImage> rasterPicture(QByteArrayView name, QSize size, QRgb line,
                                                  int opacity);

} // namespace quor
