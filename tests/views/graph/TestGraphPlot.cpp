#include "views/graph/TestGraphPlot.h"

#include "views/graph/GraphPlot.h"

#include "support/Hermetic.h"

namespace quor::test {

void TestGraphPlot::layouts_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("daysAround");
    QTest::addColumn<GraphPlot>("plot");
    const auto row = [](QSize size, int daysAround, int plotLeft, int baseline, int amplitude,
                        int dayWidth) {
        QTest::addRow("%d x %d, %d days", size.width(), size.height(), daysAround)
            << size << daysAround
            << GraphPlot{.plotLeft = plotLeft,
                         .baseline = baseline,
                         .amplitude = amplitude,
                         .dayWidth = dayWidth,
                         .daysAround = daysAround};
    };
    row({800, 400}, 20, 20, 200, 190, 19);
    row({820, 260}, 20, 20, 130, 124, 20); // 20.5 and 6.5 to the even 20 and 6
    row({860, 300}, 20, 22, 150, 142, 20); // 21.5 to 22, 7.5 to 8; 816 / 40 = 20.4
    row({741, 275}, 20, 19, 137, 130, 18); // 6.875 to 7, 130.5 to the even 130
    row({800, 400}, 1, 20, 200, 190, 380);
    row({100, 1}, 20, 2, 0, 0, 2); // half a pixel is none
    row({0, 0}, 20, 0, 0, 0, 0);
    row({800, 400}, 380, 20, 200, 190, 1);
    row({800, 400}, 1000, 20, 200, 190, 0); // 0.38 of a pixel
    row({800, 400}, 32787, 20, 200, 190, 0);
}

void TestGraphPlot::layouts() {
    QFETCH(QSize, size);
    QFETCH(int, daysAround);
    QFETCH(GraphPlot, plot);
    const GraphPlot made = layOutGraph(size, daysAround);
    QCOMPARE(made.plotLeft, plot.plotLeft);
    QCOMPARE(made.amplitude, plot.amplitude);
    QCOMPARE(made.baseline, plot.baseline);
    QCOMPARE(made.dayWidth, plot.dayWidth);
    QCOMPARE(made, plot);
}

void TestGraphPlot::valuesMapToPixels() {
    const GraphPlot plot = layOutGraph({800, 400}, 20);
    QCOMPARE(plot.y(1), 10);
    QCOMPARE(plot.y(-1), 390);
    QCOMPARE(plot.y(0), 200);
    QCOMPARE(plot.y(0.5 / 190), 200); // 199.5 to the even 200
    QCOMPARE(plot.y(1.5 / 190), 198); // 198.5 to the even 198
    QCOMPARE(plot.x(0), 20);
    QCOMPARE(plot.x(40), 780);
    QCOMPARE(plot.right(), 780);
    QCOMPARE(plot.top(), 10);
    QCOMPARE(plot.bottom(), 390);
}

void TestGraphPlot::hitTestExcludesBothEnds() {
    const GraphPlot plot = layOutGraph({800, 400}, 20);
    QCOMPARE(plot.dayAt(19), std::nullopt);
    QCOMPARE(plot.dayAt(20), std::nullopt);
    QCOMPARE(plot.dayAt(21), std::optional<std::int16_t>(0));
    QCOMPARE(plot.dayAt(779), std::optional<std::int16_t>(40));
    QCOMPARE(plot.dayAt(780), std::nullopt);
    QCOMPARE(plot.dayAt(10'000), std::nullopt);
    QCOMPARE(plot.dayAt(-10'000), std::nullopt);
}

void TestGraphPlot::ahalfIntervalGoesToTheEvenDay() {
    const GraphPlot plot = layOutGraph({840, 400}, 20); // 21 + 40·20
    QCOMPARE(plot.plotLeft, 21);
    QCOMPARE(plot.dayWidth, 20);
    QCOMPARE(plot.dayAt(21 + 9), std::optional<std::int16_t>(0));
    QCOMPARE(plot.dayAt(21 + 10), std::optional<std::int16_t>(0));
    QCOMPARE(plot.dayAt(21 + 11), std::optional<std::int16_t>(1));
    QCOMPARE(plot.dayAt(21 + 30), std::optional<std::int16_t>(2));
    QCOMPARE(plot.dayAt(21 + 29), std::optional<std::int16_t>(1));
}

void TestGraphPlot::moreDaysThanPixels() {
    const GraphPlot plot = layOutGraph({800, 400}, 32787);
    QCOMPARE(plot.right(), plot.plotLeft);
    for (int x = 0; x < 800; ++x) {
        QCOMPARE(plot.dayAt(x), std::nullopt);
    }
    // So wide that the number of a day goes beyond 16 bits: no day, rather than a wrong one.
    const GraphPlot wide{.plotLeft = 0, .dayWidth = 1, .daysAround = 32787};
    QCOMPARE(wide.dayAt(32767), std::optional<std::int16_t>(32767));
    QCOMPARE(wide.dayAt(32768), std::nullopt);
}

} // namespace quor::test
