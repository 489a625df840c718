#include "export/ExportPng.h"

#include "toolkit/DrawingPainter.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>

#include <csetjmp>

#include <png.h>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The painter counts pixels of a picture in 16 bits.
constexpr int longestSide = 32'767;
constexpr qint64 mostBytes = 512LL * 1024 * 1024;

/// Higher levels take longer and save nothing worth it on flat colours.
constexpr int compression = 6;

// The library leaves its functions by a jump on an error. It passes no frame of ours that holds
// anything to destroy.

[[noreturn]] void giveUp(png_structp png, png_const_charp /*reason*/) {
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp /*png*/, png_const_charp /*text*/) {}

void writeBytes(png_structp png, png_bytep data, std::size_t length) {
    auto* device = static_cast<QIODevice*>(png_get_io_ptr(png));
    const auto size = static_cast<qint64>(length);
    // The library's bytes are unsigned, the toolkit's are not.
    if (device->write(reinterpret_cast<const char*>(data), size) != size) {
        png_error(png, "write");
    }
}

void flushNothing(png_structp /*png*/) {}

/// The library's two structures for one file.
class PngStructures {
  public:
    PngStructures()
        : m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, ignoreWarning))
        , m_info(m_png != nullptr ? png_create_info_struct(m_png) : nullptr) {}
    ~PngStructures() { png_destroy_write_struct(&m_png, &m_info); }
    PngStructures(const PngStructures&) = delete;
    PngStructures& operator=(const PngStructures&) = delete;
    PngStructures(PngStructures&&) = delete;
    PngStructures& operator=(PngStructures&&) = delete;

    [[nodiscard]] bool isComplete() const { return m_info != nullptr; }
    [[nodiscard]] png_structp png() const { return m_png; }
    [[nodiscard]] png_infop info() const { return m_info; }

  private:
    png_structp m_png;
    png_infop m_info;
};

/// @param image red, green and blue in 32 bits, as are those of the next function
bool writeHeader(png_structp png, png_infop info, const QImage& image) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width()),
                 static_cast<png_uint_32>(image.height()), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, compression);
    // Flat colours: differences between pixels would only hide what repeats itself.
    png_set_filter(png, PNG_FILTER_TYPE_DEFAULT, PNG_FILTER_NONE);
    png_write_info(png, info);
    return true;
}

bool writeRows(png_structp png, png_infop info, const QImage& image) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    // A pixel is a number of 32 bits whose top byte is of no use.
    if constexpr (QSysInfo::ByteOrder == QSysInfo::LittleEndian) {
        png_set_filler(png, 0, PNG_FILLER_AFTER);
        png_set_bgr(png);
    } else {
        png_set_filler(png, 0, PNG_FILLER_BEFORE);
    }
    for (int y = 0; y < image.height(); ++y) {
        png_write_row(png, image.constScanLine(y));
    }
    png_write_end(png, info);
    return true;
}

bool canBePainted(QSize size) {
    return !size.isEmpty() && size.width() <= longestSide && size.height() <= longestSide;
}

} // namespace

std::uint8_t ExportPng(const QImage& image, const QString& fileName) {
    if (image.isNull()) {
        return pngNoPicture;
    }
    const QImage rows = image.convertToFormat(QImage::Format_RGB32);
    const PngStructures structures;
    if (rows.isNull() || !structures.isComplete()) {
        return pngOutOfMemory;
    }

    // Anything but a file (a folder, a device) would make way for the new one; behind a link there
    // may be any file of the user's.
    const QFileInfo old(fileName);
    const bool hasPlace =
        !fileName.isEmpty() && !old.isSymLink() && (!old.exists() || old.isFile());
    QSaveFile file(fileName);
    if (!hasPlace || !file.open(QIODevice::WriteOnly)) {
        return pngFileFailed;
    }
    png_set_write_fn(structures.png(), static_cast<QIODevice*>(&file), writeBytes, flushNothing);
    // What was written is flushed by name, or it would only be on its way.
    if (!writeHeader(structures.png(), structures.info(), rows) || !file.flush()) {
        return pngHeaderFailed;
    }
    if (!writeRows(structures.png(), structures.info(), rows) || !file.flush() || !file.commit()) {
        return pngPictureFailed;
    }
    return pngWritten;
}

std::uint8_t paintPicture(const Drawing& drawing, const QFont& font, QSize size, QImage& image) {
    image = QImage();
    if (!canBePainted(size)) {
        return pngNoPicture;
    }
    if (qint64{size.width()} * size.height() * qint64{sizeof(QRgb)} > mostBytes) {
        return pngOutOfMemory;
    }
    image = QImage(size, QImage::Format_RGB32);
    if (image.isNull()) {
        return pngOutOfMemory;
    }
    image.fill(Qt::white);
    QPainter painter;
    if (!painter.begin(&image)) {
        image = QImage();
        return pngNoPicture;
    }
    painter.setFont(font);
    paint(painter, drawing);
    return pngWritten;
}

std::uint8_t ExportPng(const Drawing& drawing, const QFont& font, QSize size,
                       const QString& fileName) {
    QImage image;
    const std::uint8_t code = paintPicture(drawing, font, size, image);
    return code == pngWritten ? ExportPng(image, fileName) : code;
}

QString resultText(std::uint8_t code) {
    switch (code) {
    case pngWritten:
        return u"Operazione eseguita correttamente"_s;
    case pngOutOfMemory:
        return u"Errore: memoria esaurita"_s;
    case pngNoPicture:
        return u"Errore: inizializzazione dell'immagine"_s;
    case pngHeaderFailed:
        return u"Errore: inizializzazione dell'header dell'immagine"_s;
    case pngFileFailed:
        return u"Errore: creazione del file impossibile"_s;
    case pngPictureFailed:
        return u"Errore: creazione dell'immagine impossibile"_s;
    default:
        return {};
    }
}

} // namespace quor
