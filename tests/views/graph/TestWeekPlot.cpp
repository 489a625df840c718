#include "views/graph/TestWeekPlot.h"

#include "views/graph/WeekPlot.h"

#include <QTest>

namespace quor::test {

void TestWeekPlot::geometry_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("baseline");
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("amplitude");

    // 200 twips are 13.33 pixels.
    QTest::newRow("plain") << QSize(800, 200) << 20 << 87 << 107 << 82;
    QTest::newRow("margins of 2.5 go to 2") << QSize(100, 100) << 2 << 37 << 12 << 35;
    QTest::newRow("margins of 1.5 go to 2") << QSize(60, 60) << 2 << 17 << 6 << 15;
    QTest::newRow("margins of 3.5 go to 4") << QSize(140, 140) << 4 << 57 << 17 << 53;
    QTest::newRow("odd height") << QSize(963, 131) << 24 << 52 << 129 << 49;
    QTest::newRow("large") << QSize(2000, 1000) << 50 << 487 << 270 << 462;
    QTest::newRow("too small for its reserve") << QSize(12, 24) << 0 << 1 << 0 << 0;
    QTest::newRow("nothing") << QSize(0, 0) << 0 << 0 << 0 << 0;
}

void TestWeekPlot::geometry() {
    QFETCH(QSize, picture);
    const WeekPlot plot = layOutWeek(picture);
    QCOMPARE(plot.picture, picture);
    QTEST(plot.weekLeft, "left");
    QTEST(plot.weekBaseline, "baseline");
    QTEST(plot.cellWidth, "cell");
    QTEST(plot.weekAmplitude, "amplitude");
}

void TestWeekPlot::mapping() {
    const WeekPlot plot{.picture = {800, 200},
                        .weekLeft = 20,
                        .weekBaseline = 87,
                        .cellWidth = 107,
                        .weekAmplitude = 83};
    QCOMPARE(plot.x(0), 20);
    QCOMPARE(plot.x(0.5), 74); // 73.5
    QCOMPARE(plot.x(1), 127);
    QCOMPARE(plot.x(1.5), 180); // 180.5
    QCOMPARE(plot.x(7), 769);
    QCOMPARE(plot.right(), 769);
    QCOMPARE(plot.y(0), 87);
    QCOMPARE(plot.y(1), 4);
    QCOMPARE(plot.y(-1), 170);
    QCOMPARE(plot.y(0.5), 46);   // 45.5
    QCOMPARE(plot.y(-0.5), 128); // 128.5
    QCOMPARE(plot.top(), 4);
    QCOMPARE(plot.bottom(), 170);
}

void TestWeekPlot::labelStandsInTheMiddle_data() {
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("label");
    QTest::addColumn<int>("left");
    QTest::newRow("even") << 800 << 60 << 370;
    QTest::newRow("370.5") << 801 << 60 << 370;
    QTest::newRow("371.5") << 803 << 60 << 372;
    QTest::newRow("wider than the picture") << 40 << 60 << -10;
}

void TestWeekPlot::labelStandsInTheMiddle() {
    QFETCH(int, width);
    QFETCH(int, label);
    const WeekPlot plot{.picture = {width, 100}};
    QTEST(labelLeft(plot, label), "left");
}

void TestWeekPlot::labelStandsBelowTheNames_data() {
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("drop");
    // 40 pixels are left below the row.
    QTest::newRow("much room") << 12 << 14;
    QTest::newRow("just enough") << 19 << 21;
    QTest::newRow("only for the two lines") << 20 << 20;
    QTest::newRow("not for the two lines") << 25 << 25;
}

void TestWeekPlot::labelStandsBelowTheNames() {
    QFETCH(int, height);
    const WeekPlot plot{.picture = {800, 200}, .weekBaseline = 82, .weekAmplitude = 78};
    QCOMPARE(plot.room(), 40);
    QTEST(labelDrop(plot, height), "drop");
}

void TestWeekPlot::textsFitTheirLines_data() {
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("label");
    QTest::addColumn<int>("name");
    QTest::addColumn<int>("lines"); // 0 where the texts do not fit

    // Columns begin at 50, 150, ... 650; Thursday's at 350, Friday's at 450. The label is centred
    // on 410; 40 pixels are left below the row.
    QTest::newRow("small texts") << 15 << 40 << 20 << 1;
    QTest::newRow("label ends 4 before Friday's name") << 15 << 72 << 20 << 1;
    QTest::newRow("label ends 3 before Friday's name") << 15 << 74 << 20 << 2;
    QTest::newRow("Thursday's name ends 4 before the label") << 15 << 72 << 20 << 1;
    QTest::newRow("Thursday's name ends 3 before the label") << 15 << 72 << 21 << 2;
    QTest::newRow("label over Thursday and Friday") << 15 << 200 << 20 << 2;
    QTest::newRow("one line just high enough") << 40 << 40 << 20 << 1;
    QTest::newRow("one line too high by one") << 41 << 40 << 20 << 0;
    QTest::newRow("two lines just high enough") << 20 << 200 << 20 << 2;
    QTest::newRow("two lines too high by one each") << 21 << 200 << 20 << 0;
    QTest::newRow("label as wide as the picture") << 15 << 820 << 20 << 2;
    QTest::newRow("label wider than the picture") << 15 << 821 << 20 << 0;
    QTest::newRow("name wider than its column") << 15 << -220 << 97 << 0;
    QTest::newRow("name as wide as its column allows") << 15 << -220 << 96 << 1;
    QTest::newRow("names wider than their columns, two lines") << 15 << 200 << 97 << 0;
    QTest::newRow("names as wide as columns allow, two lines") << 15 << 200 << 96 << 2;
}

void TestWeekPlot::textsFitTheirLines() {
    QFETCH(int, height);
    QFETCH(int, label);
    QFETCH(int, name);
    const WeekPlot plot{.picture = {820, 200},
                        .weekLeft = 50,
                        .weekBaseline = 82,
                        .cellWidth = 100,
                        .weekAmplitude = 78};
    WeekTextSizes sizes{.height = height, .label = label};
    sizes.names.fill(name);
    const auto lines = fittingLines(plot, sizes);
    const int count = !lines ? 0 : *lines == WeekLines::one ? 1 : 2;
    QTEST(count, "lines");
}

} // namespace quor::test
