#include "toolkit/TestPictures.h"

#include "toolkit/Commands.h"
#include "toolkit/ImageList.h"
#include "toolkit/PictureBox.h"
#include "toolkit/PictureRaster.h"

#include "support/Hermetic.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QImage rendered(const QString& key, QIcon::Mode mode = QIcon::Normal) {
    return picture(key).pixmap(QSize(24, 24), 1.0, mode).toImage();
}

int greatestOpacity(const QImage& image) {
    int greatest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            greatest = std::max(greatest, qAlpha(image.pixel(x, y)));
        }
    }
    return greatest;
}

class RestoredPalette {
  public:
    ~RestoredPalette() { QApplication::setPalette(m_palette); }

  private:
    QPalette m_palette = QApplication::palette();
};

} // namespace

void TestPictures::everyToolHasAPicture() {
    for (const ToolInfo& info : toolTable()) {
        if (!info.isSeparator()) {
            for (const int size : {16, 24, 32}) {
                const QImage image = picture(u"Imm"_s + QString::fromLatin1(info.key))
                                         .pixmap(QSize(size, size), 1.0)
                                         .toImage();
                QCOMPARE(image.size(), QSize(size, size));
                QVERIFY2(greatestOpacity(image) > 200, info.key);
            }
        }
    }
    QVERIFY(greatestOpacity(rendered(u"ImmFrecciaSu"_s)) > 200);
    QVERIFY(greatestOpacity(rendered(u"ImmFrecciaGiu"_s)) > 200);
    QVERIFY(!emblem().isNull());
}

void TestPictures::unknownKeysHaveNone() {
    QVERIFY(picture(u"ImmNessuna"_s).isNull());
    QVERIFY(picture(u"Grafico"_s).isNull());
}

void TestPictures::picturesFollowThePalette() {
    const RestoredPalette restored;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(palette);
    const QImage dark = rendered(u"ImmStampa"_s);
    palette.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(palette);
    const QImage light = rendered(u"ImmStampa"_s);
    QVERIFY(dark != light);
    QCOMPARE(greatestOpacity(dark), greatestOpacity(light));
}

void TestPictures::disabledPicturesAreFaded() {
    const QImage disabled = rendered(u"ImmStampa"_s, QIcon::Disabled);
    QVERIFY(greatestOpacity(disabled) > 40);
    QVERIFY(greatestOpacity(disabled) < 120);
}

void TestPictures::pixelsAreThoseOfTheDrawings_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<QColor>("line");
    for (const ToolInfo& info : toolTable()) {
        for (const int size : info.isSeparator() ? QList<int>() : QList<int>{24, 48}) {
            for (const QColor& line : {QColor(Qt::black), QColor(Qt::white), QColor(200, 90, 30)}) {
                QTest::addRow("%s %d %s", info.key, size, qPrintable(line.name()))
                    << QString::fromLatin1(info.key) << size << line;
            }
        }
    }
}

/// Every tool has pixels that were made with the program; rounding alone may tell them from its
/// drawing.
void TestPictures::pixelsAreThoseOfTheDrawings() {
    QFETCH(const QString, name);
    QFETCH(const int, size);
    QFETCH(const QColor, line);
    QVERIFY(!picture(u"Imm"_s + name).isNull()); // its drawing is a resource
    QFile file(u":/pictures/%1.svg"_s.arg(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QSvgRenderer renderer(file.readAll().replace("currentColor", line.name().toLatin1()));
    QImage drawing(size, size, QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    renderer.render(&painter);
    painter.end();
    for (const int opacity : {255, 89}) {
        const auto raster = rasterPicture(name.toLatin1(), QSize(size, size), line.rgb(), opacity);
        QVERIFY(raster);
        QCOMPARE(raster->size(), drawing.size());
        int difference = 0;
        for (qsizetype i = 0; i < drawing.sizeInBytes(); ++i) {
            difference = std::max(difference, std::abs(drawing.constBits()[i] * opacity / 255 -
                                                       raster->constBits()[i]));
        }
        QVERIFY2(difference <= 2, qPrintable(QString::number(difference)));
    }
}

/// A window squeezed to nothing paints its title bar and its tabs all the same.
void TestPictures::picturesOfNoSizeAreEmpty() {
    for (const QSize size : {QSize(0, 24), QSize(24, 0), QSize(0, 0), QSize(-3, -3)}) {
        QVERIFY(emblem().pixmap(size, 1.0).isNull());
        QImage sheet(10, 10, QImage::Format_ARGB32);
        sheet.fill(Qt::white);
        const QImage before = sheet;
        QPainter painter(&sheet);
        emblem().paint(&painter, QRect(QPoint(2, 2), size));
        painter.end();
        QCOMPARE(sheet, before);
    }
}

void TestPictures::theSheetIsWhiteAndSharp() {
    const RestoredPalette restored;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(palette);
    PictureBox box;
    box.resize(60, 40);
    Drawing drawing;
    drawing.add(FilledBox{.area = QRect(10, 10, 5, 5), .fill = 0x0000FF});
    box.setDrawing(drawing);
    QCOMPARE(box.drawing(), drawing);

    const QImage once = box.grab().toImage();
    QCOMPARE(once.pixelColor(1, 1), QColor(Qt::white));
    QCOMPARE(once.pixelColor(12, 12), QColor(Qt::red));

    box.setDrawing({});
    QCOMPARE(box.grab().toImage().pixelColor(12, 12), QColor(Qt::white));
}

} // namespace quor::test
