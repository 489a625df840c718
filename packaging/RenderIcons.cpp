// quor-icons FILE.svg FOLDER SIZE...: draws a picture into FOLDER/SIZE.png for each size in pixels.
// Icons are drawn while the program is built, so that no picture is kept twice.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[]) {
    constexpr int firstSize = 3;
    if (argc <= firstSize) {
        std::fputs("usage: quor-icons FILE.svg FOLDER SIZE...\n", stderr);
        return 2;
    }
    QSvgRenderer picture;
    if (!picture.load(QFile::decodeName(argv[1]))) {
        std::fprintf(stderr, "quor-icons: %s is no picture\n", argv[1]);
        return 1;
    }
    const QDir folder(QFile::decodeName(argv[2]));
    for (int i = firstSize; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        if (image.isNull()) {
            std::fprintf(stderr, "quor-icons: %s is no size\n", argv[i]);
            return 2;
        }
        QPainter painter(&image);
        picture.render(&painter);
        painter.end();
        const QString file = folder.filePath(u"%1.png"_s.arg(size));
        if (!folder.mkpath(u"."_s) || !image.save(file, "PNG")) {
            std::fprintf(stderr, "quor-icons: %s cannot be written\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
