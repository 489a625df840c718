#include "toolkit/PictureRaster.h"

#include <algorithm>

namespace quor {

namespace {

constexpr int full = 255;

/// a * b / 255, to the nearest
int part(int a, int b) {
    return (a * b + full / 2) / full;
}

} // namespace

std::optional<QImage> rasterPicture(QByteArrayView name, QSize size, QRgb line, int opacity) {
    const std::span table = pictureRasters();
    const auto raster = std::ranges::find_if(table, [&](const PictureRaster& entry) {
        return QSize(entry.size, entry.size) == size && entry.name == name;
    });
    if (raster == table.end()) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const auto* from = reinterpret_cast<const uchar*>(raster->pixels);
    for (int y = 0; y < image.height(); ++y) {
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, ++to, from += rasterBytesPerPixel) {
            const int alpha = from[3];
            if (alpha == 0) {
                continue;
            }
            const auto channel = [&](int withBlack, int ofLine) {
                return part(std::min(withBlack + part(from[4], ofLine), alpha), opacity);
            };
            *to = qRgba(channel(from[2], qRed(line)), channel(from[1], qGreen(line)),
                        channel(from[0], qBlue(line)), part(alpha, opacity));
        }
    }
    return image;
}

} // namespace quor
