#include "toolkit/TestDrawing.h"

#include "toolkit/Drawing.h"
#include "toolkit/DrawingPainter.h"

#include "support/Hermetic.h"

#include <QImage>
#include <QPainter>

#include <set>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr Colour red = 0x0000FF;
constexpr Colour blue = 0xFF0000;

QImage painted(const Drawing& drawing, QSize size = {40, 40}, qreal scale = 1) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter, drawing);
    return image;
}

/// The rectangle that holds every pixel of a colour.
QRect extent(const QImage& image, QColor colour) {
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) {
                area |= QRect(x, y, 1, 1);
            }
        }
    }
    return area;
}

std::set<QRgb> colours(const QImage& image) {
    std::set<QRgb> found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            found.insert(image.pixel(x, y));
        }
    }
    return found;
}

} // namespace

void TestDrawing::boxesTakeCornersInAnyOrder() {
    QCOMPARE(boxBetween({2, 9}, {5, 3}), QRect(QPoint(2, 3), QPoint(5, 9)));
    QCOMPARE(boxBetween({5, 3}, {2, 9}), QRect(QPoint(2, 3), QPoint(5, 9)));
    QCOMPARE(boxBetween({4, 4}, {4, 4}).size(), QSize(1, 1));
}

void TestDrawing::coloursAreBlueGreenRed() {
    QCOMPARE(toQColor(0xFF0000), QColor(Qt::blue));
    QCOMPARE(toQColor(0x0000FF), QColor(Qt::red));
    QCOMPARE(toQColor(0x123456), QColor(0x56, 0x34, 0x12));
    QCOMPARE(toQColor(-1), QColor(Qt::white)); // the top byte does not matter
    for (const Colour colour : {0, 0xFF, 0x123456, 0xFFFFFF}) {
        QCOMPARE(fromQColor(toQColor(colour)), colour);
    }
}

void TestDrawing::boxesIncludeTheirCorners() {
    Drawing drawing;
    drawing.add(FilledBox{.area = boxBetween({5, 20}, {10, 8}), .fill = red});
    QCOMPARE(extent(painted(drawing), Qt::red), QRect(QPoint(5, 8), QPoint(10, 20)));
}

void TestDrawing::gridLinesAreNotSmoothed() {
    Drawing drawing;
    drawing.add(Line{.from = {5, 30}, .to = {5, 10}, .stroke = {.colour = red, .width = 1}});
    drawing.add(Line{.from = {10, 3}, .to = {35, 3}, .stroke = {.colour = red, .width = 2}});
    const QImage image = painted(drawing);
    QCOMPARE(colours(image), (std::set<QRgb>{QColor(Qt::red).rgb(), QColor(Qt::white).rgb()}));
    QCOMPARE(extent(image.copy(0, 5, 40, 35), Qt::red), QRect(QPoint(5, 5), QPoint(5, 25)));
    QCOMPARE(extent(image.copy(20, 0, 5, 40), Qt::red).height(), 2);
}

void TestDrawing::gridLinesFillGapsBetweenBoxes_data() {
    QTest::addColumn<qreal>("scale");
    for (const qreal scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        QTest::addRow("%g", scale) << scale;
    }
}

/// Also where a pixel of the drawing is not a whole number of pixels of the screen.
void TestDrawing::gridLinesFillGapsBetweenBoxes() {
    QFETCH(qreal, scale);
    Drawing drawing;
    for (int x = 0; x < 40; x += 5) {
        drawing.add(FilledBox{.area = {x + 1, 0, 4, 40}, .fill = blue});
        drawing.add(Line{.from = {x, 40}, .to = {x, 0}, .stroke = {.colour = red}});
    }
    QCOMPARE(colours(painted(drawing, {40, 40}, scale)),
             (std::set<QRgb>{QColor(Qt::blue).rgb(), QColor(Qt::red).rgb()}));
}

void TestDrawing::curvesAreSmoothed() {
    Drawing drawing;
    drawing.add(
        Curve{.points = {{2, 2}, {20, 9}, {37, 37}}, .stroke = {.colour = red, .width = 2}});
    QVERIFY(colours(painted(drawing)).size() > 5);
}

void TestDrawing::outlinesAreNotFilled() {
    Drawing drawing;
    drawing.add(OutlineBox{.area = boxBetween({5, 6}, {30, 25}), .stroke = {.colour = blue}});
    const QImage image = painted(drawing);
    QCOMPARE(extent(image, Qt::blue), QRect(QPoint(5, 6), QPoint(30, 25)));
    QCOMPARE(image.pixelColor(15, 15), QColor(Qt::white));
}

void TestDrawing::laterCoversEarlier() {
    Drawing drawing;
    drawing.add(FilledBox{.area = QRect(0, 0, 40, 40), .fill = red});
    drawing.add(FilledBox{.area = QRect(10, 10, 5, 5), .fill = blue});
    QCOMPARE(painted(drawing).pixelColor(12, 12), QColor(Qt::blue));
}

void TestDrawing::textIsReadableOnEveryColour() {
    QCOMPARE(readableOn(Qt::blue), QColor(Qt::white));
    QCOMPARE(readableOn(Qt::black), QColor(Qt::white));
    QCOMPARE(readableOn(Qt::yellow), QColor(Qt::black));
    QCOMPARE(readableOn(Qt::green), QColor(Qt::black));
    QCOMPARE(readableOn(Qt::white), QColor(Qt::black));
}

} // namespace quor::test
