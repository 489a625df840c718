#include "views/analysis/TestStatePlot.h"

#include "views/analysis/StatePlot.h"

#include <QTest>

namespace quor::test {

namespace {

StatePictureSizes pictureSizes() {
    return {
        .width = 500, .height = 260, .textHeight = 17, .scaleWidth = 22, .arrowSize = 20, .gap = 4};
}

StatePlot plotBetween(int topLine, int zeroLine) {
    StatePlot plot;
    plot.topLine = topLine;
    plot.zeroLine = zeroLine;
    plot.bottomLine = 2 * zeroLine - topLine;
    plot.columnWidth = 100;
    plot.barWidth = 30;
    return plot;
}

} // namespace

void TestStatePlot::unitIsSinglePrecision() {
    QCOMPARE(plotBetween(20, 120).unit(), 10.0F);
    QCOMPARE(plotBetween(20, 143).unit(), 12.3F);
    static_assert(std::is_same_v<decltype(StatePlot().unit()), float>);
    // The heights carry on in double precision with the single-precision unit.
    QVERIFY(plotBetween(20, 143).extent(3.7).height == 3.7 * static_cast<double>(12.3F));
    QVERIFY(plotBetween(20, 143).extent(3.7).height != 3.7 * 12.3);
}

void TestStatePlot::positiveStandsOnZeroLine() {
    const BarExtent bar = plotBetween(20, 120).extent(3.25);
    QVERIFY(bar.height == 32.5);
    QVERIFY(bar.top == 87.5);
}

void TestStatePlot::negativeHangsFromZeroLine() {
    const BarExtent bar = plotBetween(20, 120).extent(-3.25);
    QVERIFY(bar.height == 32.5);
    QVERIFY(bar.top == 120);
}

void TestStatePlot::zeroHasNoHeight() {
    const StatePlot plot = plotBetween(20, 120);
    QVERIFY(plot.extent(0) == (BarExtent{.height = 0, .top = 120}));
    QVERIFY(plot.bar(0, 0).isEmpty());
    QCOMPARE(plot.bar(0, 0).top(), 120);
    QVERIFY(plot.bar(0, 0.04).isEmpty());
    QVERIFY(plot.bar(0, -0.04).isEmpty());
}

void TestStatePlot::extremesReachTheLines() {
    for (const int zeroLine : {120, 143, 777, 4321}) {
        const StatePlot plot = plotBetween(20, zeroLine);
        QCOMPARE(plot.bar(0, 10).top(), plot.topLine);
        QCOMPARE(plot.bar(0, 10).bottom() + 1, plot.zeroLine);
        QCOMPARE(plot.bar(0, -10).top(), plot.zeroLine);
        QCOMPARE(plot.bar(0, -10).bottom() + 1, plot.bottomLine);
    }
}

void TestStatePlot::coordinatesAreRoundedToNearest() {
    const StatePlot plot = plotBetween(20, 120);
    QCOMPARE(plot.bar(0, 3.24).height(), 32);
    QCOMPARE(plot.bar(0, 3.25).height(), 32); // a tie goes to the even one
    QCOMPARE(plot.bar(0, 3.35).height(), 34);
    QCOMPARE(plot.bar(0, 3.26).height(), 33);
    QCOMPARE(plot.bar(0, 3.26).top(), 87);
    QCOMPARE(plot.bar(0, -3.26).height(), 33);
    QCOMPARE(plot.bar(0, -3.26).top(), 120);
}

void TestStatePlot::columnsShareTheWidth() {
    const StatePlot plot = layOutState(pictureSizes());
    QVERIFY(plot.right() <= 500);
    QVERIFY(plot.right() > 500 - 4 - 4);
    for (std::size_t column = 0; column < 4; ++column) {
        const QRect caption = plot.caption(column);
        const QRect bar = plot.bar(column, 5);
        QCOMPARE(caption.width(), plot.columnWidth);
        QVERIFY(std::abs(caption.center().x() - bar.center().x()) <= 1);
        if (column > 0) {
            QCOMPARE(caption.left(), plot.caption(column - 1).right() + 1);
            QCOMPARE(bar.left() - plot.bar(column - 1, 5).left(), plot.columnWidth);
        }
    }
}

void TestStatePlot::nothingOverlaps() {
    StatePictureSizes sizes = pictureSizes();
    for (sizes.width = 330; sizes.width < 1500; sizes.width += 7) {
        const StatePlot plot = layOutState(sizes);
        const QRect picture(0, 0, sizes.width, sizes.height);
        for (std::size_t column = 0; column < 4; ++column) {
            const QRect arrow = plot.arrow(column);
            QVERIFY(plot.barWidth > 0);
            QVERIFY(picture.contains(arrow));
            QVERIFY(picture.contains(plot.caption(column)));
            QVERIFY(!arrow.intersects(plot.bar(column, 10)));
            QVERIFY(!arrow.intersects(plot.bar(column, -10)));
            QVERIFY(column == 3 || !arrow.intersects(plot.bar(column + 1, 10)));
            QVERIFY(arrow.bottom() < plot.zeroLine);
            QVERIFY(plot.caption(column).top() > plot.bottomLine);
        }
    }
}

void TestStatePlot::tooSmallPictureHasNoNegativeSizes() {
    StatePictureSizes sizes = pictureSizes();
    for (const QSize size : {QSize(0, 0), QSize(30, 40), QSize(1, 300), QSize(300, 1)}) {
        sizes.width = size.width();
        sizes.height = size.height();
        const StatePlot plot = layOutState(sizes);
        QVERIFY(plot.columnWidth >= 0);
        QVERIFY(plot.barWidth >= 0);
        QVERIFY(plot.topLine <= plot.zeroLine);
        QCOMPARE(plot.bottomLine - plot.zeroLine, plot.zeroLine - plot.topLine);
        QVERIFY(plot.bar(3, 10).height() >= 0);
    }
}

} // namespace quor::test
