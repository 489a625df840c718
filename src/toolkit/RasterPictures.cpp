// quor-rasters OUT.cpp FILE.svg...: writes the table of PictureRaster.h with these pictures.

#include "toolkit/PictureRaster.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The frame's toolbar on screens of one and of two pixels for one.
constexpr std::array sizes{24, 48};

QImage drawn(QByteArray svg, int size, const char* line) {
    QSvgRenderer picture(svg.replace("currentColor", line));
    picture.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    return image;
}

/// The pixels as a literal, line by line.
QByteArray literal(const QByteArray& svg, int size) {
    const QImage black = drawn(svg, size, "#000000");
    const QImage white = drawn(svg, size, "#ffffff");
    QByteArray text;
    for (int y = 0; y < size; ++y) {
        text += "\n    \"";
        for (int x = 0; x < size; ++x) {
            const QRgb pixel = reinterpret_cast<const QRgb*>(black.constScanLine(y))[x];
            const QRgb lit = reinterpret_cast<const QRgb*>(white.constScanLine(y))[x];
            const std::array<int, quor::rasterBytesPerPixel> bytes{
                qBlue(pixel), qGreen(pixel), qRed(pixel), qAlpha(pixel),
                std::max(0, qGreen(lit) - qGreen(pixel))};
            for (const int byte : bytes) {
                text += '\\' + QByteArray::number(byte, 8).rightJustified(3, '0');
            }
        }
        text += '"';
    }
    return text;
}

} // namespace

int main(int argc, char* argv[]) {
    QByteArray table;
    for (int i = 2; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "quor-rasters: %s cannot be read\n", argv[i]);
            return 1;
        }
        const QByteArray svg = file.readAll();
        for (const int size : sizes) {
            table += "    {\"" + QFileInfo(path).completeBaseName().toLatin1() + "\", " +
                     QByteArray::number(size) + ',' + literal(svg, size) + "},\n";
        }
    }
    QFile out(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    const QByteArray text = "// Made by quor-rasters.\n\n#include \"toolkit/PictureRaster.h\"\n\n"
                            "#include <array>\n\nnamespace quor {\n\n"
                            "std::span<const PictureRaster> pictureRasters() {\n"
                            "    static constexpr auto table = std::to_array<PictureRaster>({\n" +
                            table + "    });\n    return table;\n}\n\n} // namespace quor\n";
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.flush()) {
        std::fputs("usage: quor-rasters OUT.cpp FILE.svg...\n", stderr);
        return 1;
    }
    return 0;
}
