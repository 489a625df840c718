#include "TestLongCurves.h"

#include "toolkit/DrawingPainter.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr QSize sheetSize(620, 210);

QImage sheet(qreal ratio) {
    QImage image((QSizeF(sheetSize) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

/// Waves from left to right, `step` pixels a point; a step of 0 leaves all on one column.
Curve waves(int step, const Stroke& stroke) {
    Curve curve{.points = {}, .stroke = stroke};
    for (int i = 0; i < 300; ++i) {
        const double value = std::sin(0.27 * i) * std::cos(0.01 * i);
        curve.points.emplace_back(10 + step * i, 105 - static_cast<int>(std::lround(100 * value)));
    }
    return curve;
}

QImage inPieces(const Curve& curve, qreal ratio, const QRect& clip = {}) {
    QImage image = sheet(ratio);
    QPainter painter(&image);
    if (!clip.isNull()) {
        painter.setClipRect(clip);
    }
    paint(painter, Drawing{.primitives = {curve}});
    return image;
}

/// The same at one go, by the toolkit alone.
QImage whole(const Curve& curve, qreal ratio, const QRect& clip = {}) {
    QImage image = sheet(ratio);
    QPainter painter(&image);
    if (!clip.isNull()) {
        painter.setClipRect(clip);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(toQPen(curve.stroke));
    painter.drawPolyline(curve.points.data(), static_cast<int>(curve.points.size()));
    return image;
}

/// Pixels in which two images differ by more than a shade that nobody sees.
int differences(const QImage& a, const QImage& b, int shade) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            count += std::abs(qRed(p) - qRed(q)) > shade ||
                             std::abs(qGreen(p) - qGreen(q)) > shade ||
                             std::abs(qBlue(p) - qBlue(q)) > shade
                         ? 1
                         : 0;
        }
    }
    return count;
}

} // namespace

void TestLongCurves::piecesGiveTheWholeCurve_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<double>("ratio");
    for (const int step : {0, 1, 2}) {
        for (const int width : {1, 2, 3}) {
            for (const Pattern pattern :
                 {Pattern::solid, Pattern::dash, Pattern::dashDot, Pattern::dashDotDot}) {
                for (const double ratio : {1.0, 1.1, 1.25, 1.5, 2.0}) {
                    const QString name = u"step %1 width %2 pattern %3 ratio %4"_s.arg(step)
                                             .arg(width)
                                             .arg(static_cast<int>(pattern))
                                             .arg(ratio);
                    QTest::newRow(qPrintable(name))
                        << step << width << static_cast<int>(pattern) << ratio;
                }
            }
        }
    }
}

void TestLongCurves::piecesGiveTheWholeCurve() {
    QFETCH(int, step);
    QFETCH(int, width);
    QFETCH(int, pattern);
    QFETCH(double, ratio);
    const Curve curve =
        waves(step, {.colour = 0xC04020, .width = width, .pattern = static_cast<Pattern>(pattern)});
    const QImage expected = whole(curve, ratio);
    QVERIFY(differences(expected, sheet(ratio), 0) > 100); // something was painted
    const QImage painted = inPieces(curve, ratio);
    if (curve.stroke.pattern == Pattern::solid) {
        QCOMPARE(differences(painted, expected, 0), 0);
    } else {
        // Where a dash ends is computed from another start: now and then a shade comes out
        // differently.
        QCOMPARE(differences(painted, expected, 8), 0);
        QVERIFY(differences(painted, expected, 0) <= 10);
    }
}

void TestLongCurves::outerClipHolds() {
    const Curve curve = waves(2, {.colour = black, .width = 2, .pattern = Pattern::solid});
    const QRect clip(101, 33, 250, 90);
    const QImage painted = inPieces(curve, 1.5, clip);
    QCOMPARE(differences(painted, whole(curve, 1.5, clip), 0), 0);
    QVERIFY(differences(painted, inPieces(curve, 1.5), 0) > 100);
}

void TestLongCurves::coveredPrimitivesLeaveTheLastOne() {
    const QRect area(10, 10, 5, 100);
    const Line line{.from = {12, 0}, .to = {12, 200}, .stroke = {.colour = 0x00FF00}};
    Drawing drawing;
    drawing.add(FilledBox{.area = area, .fill = 0x0000FF});
    drawing.add(FilledBox{.area = area, .fill = 0xFF0000});
    drawing.add(FilledBox{.area = area.translated(1, 0), .fill = 0x808080});
    drawing.add(line);
    drawing.add(line);
    drawing.add(FilledBox{.area = {0, 20, 100, 1}, .fill = black});
    drawing.add(line);

    QImage image = sheet(1);
    {
        QPainter painter(&image);
        paint(painter, drawing);
    }
    QCOMPARE(image.pixelColor(10, 50), QColor(0, 0, 255));
    QCOMPARE(image.pixelColor(11, 50), QColor(128, 128, 128));
    QCOMPARE(image.pixelColor(12, 50), QColor(0, 255, 0));
    QCOMPARE(image.pixelColor(12, 20), QColor(0, 255, 0)); // over the bar that came between
    QCOMPARE(image.pixelColor(50, 20), QColor(0, 0, 0));
}

} // namespace quor::test
