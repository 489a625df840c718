#include "export/TestExportPictures.h"

#include "export/ExportPictures.h"
#include "views/graph/GraphDrawing.h"
#include "views/graph/WeekDrawing.h"

#include <QFontMetrics>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Biorhythm person() {
    Program program;
    resetToStartUp(program);
    Biorhythm& biorhythm = program.biorhythm;
    biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    biorhythm.calculationDate = toDateValue(QDate(2004, 3, 14)); // a Sunday
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    return biorhythm;
}

template<typename Kind> std::ptrdiff_t count(const Drawing& drawing) {
    return std::count_if(drawing.primitives.begin(), drawing.primitives.end(),
                         [](const Primitive& p) { return std::holds_alternative<Kind>(p); });
}

} // namespace

void TestExportPictures::sizes() {
    // 28,800 by 16,200 twips: 22,840 by 9,520; A4 is 11,906 by 16,838: 9,525 by 6,735.
    QCOMPARE(pictureSize(PageVariant::screen, defaultScreen()), QSize(1523, 635));
    QCOMPARE(pictureSize(PageVariant::print, defaultPaper()), QSize(635, 449));
    QCOMPARE(pictureSize(PageVariant::screen, fromPixels({1024, 768})), QSize(806, 447));
    QCOMPARE(pictureSize(PageVariant::screen, fromPixels({10, 10})), QSize(0, 0));
    QCOMPARE(pictureSize(PageVariant::print, fromPixels({0, 0})), QSize(0, 0));
}

void TestExportPictures::weekSizes() {
    const auto sizes = [](QSize exportSize) {
        std::vector<QSize> found(weekRows.size());
        std::transform(weekRows.begin(), weekRows.end(), found.begin(),
                       [exportSize](WeekRow row) { return weekPictureSize(row, exportSize); });
        return found;
    };
    const auto oneAndThree = [](QSize mean, QSize cycle) {
        return std::vector<QSize>{mean, cycle, cycle, cycle};
    };
    QCOMPARE(sizes({1523, 635}), oneAndThree({1515, 159}, {501, 159}));
    QCOMPARE(sizes({635, 449}), oneAndThree({627, 112}, {205, 112}));
    QCOMPARE(sizes({627, 347}), oneAndThree({621, 87}, {203, 87})); // a screen of 800 by 600
    QCOMPARE(sizes({21, 10}), oneAndThree({15, 2}, {1, 2}));
    QCOMPARE(sizes({20, 300}), std::vector<QSize>(4, QSize(0, 0)));
    QCOMPARE(sizes({0, 0}), std::vector<QSize>(4, QSize(0, 0)));
}

void TestExportPictures::weekIsNoWiderThanTheGraph() {
    for (int width = 21; width < 4000; ++width) {
        const int cycle = weekPictureSize(WeekRow::physical, {width, 300}).width();
        const int mean = weekPictureSize(WeekRow::mean, {width, 300}).width();
        // Each with 1 of border and 1 of padding on both sides; 2 before, between and after cells.
        const int graph = width + 4;
        const int three = 3 * (cycle + 4) + 4 * 2 + 2;
        QVERIFY(three <= graph && graph < three + 3);
        QCOMPARE(mean + 4, 3 * (cycle + 4) + 2 * 2);
    }
}

void TestExportPictures::graphTakesTheRecord() {
    Biorhythm biorhythm = person();
    const QSize size(800, 300);
    const ExportPicture picture = graphPicture(biorhythm, size);
    QCOMPARE(picture.size, size);
    QCOMPARE(count<Curve>(picture.drawing), 10);
    QCOMPARE(count<FilledBox>(picture.drawing), 40);
    QCOMPARE(count<Text>(picture.drawing), 40);

    biorhythm.graphDaysAdjust = -10;
    biorhythm.dayIndexPosition = 0;
    biorhythm.showMean = false;
    biorhythm.enhance = false;
    biorhythm.curveColours[0] = 0x123456;
    const Drawing narrow = graphPicture(biorhythm, size).drawing;
    QCOMPARE(count<Curve>(narrow), 9);
    QCOMPARE(count<FilledBox>(narrow), 0);
    QCOMPARE(count<Text>(narrow), 0);
    const auto& curve = std::get<Curve>(narrow.primitives.front());
    QCOMPARE(curve.stroke.colour, 0x123456);
    QCOMPARE(curve.points.size(), std::size_t{21});
    // The first day is ten before the calculation date.
    const GraphPlot plot = layOutGraph(size, 10);
    const std::int32_t firstDay = dayCount(biorhythm.birthDate, toDateValue(QDate(2004, 3, 4)));
    QCOMPARE(curve.points.at(3).y() + 1, plot.y(personSeries(firstDay, 10).physical.at(3)));
}

void TestExportPictures::weekTakesTheRecord() {
    Biorhythm biorhythm = person();
    biorhythm.weeklyColours = {1, 2, 3, 0};
    const std::int32_t monday = dayCount(biorhythm.birthDate, toDateValue(QDate(2004, 3, 8)));
    for (const WeekRow row : weekRows) {
        const ExportPicture picture = weekPicture(biorhythm, row, {1500, 400});
        QFont bold = picture.font;
        bold.setBold(true);
        const WeekStyle style{.colours = {1, 2, 3},
                              .weekday = 7,
                              .labelWidth = QFontMetrics(bold).horizontalAdvance(rowLabel(row))};
        QCOMPARE(picture.drawing, drawWeekRow(monday, row, layOutWeek({1500, 400}), style));
    }
}

void TestExportPictures::fontsFitTheirPicture() {
    const Biorhythm biorhythm = person();
    QCOMPARE(graphPicture(biorhythm, {1523, 635}).font.pixelSize(), 13);
    QCOMPARE(weekPicture(biorhythm, WeekRow::mean, {1523, 635}).font.pixelSize(), 13);
    const int small = graphPicture(biorhythm, {635, 449}).font.pixelSize();
    QVERIFY(small >= 8 && small < 13);
    QCOMPARE(graphPicture(biorhythm, {50, 40}).font.pixelSize(), 8);
    // All rows have one font, whatever their label.
    for (const WeekRow row : weekRows) {
        QCOMPARE(weekPicture(biorhythm, row, {900, 300}).font,
                 weekPicture(biorhythm, WeekRow::mean, {900, 300}).font);
    }
}

void TestExportPictures::narrowPicturesHaveTwoLines() {
    const Biorhythm biorhythm = person();
    // Whether the label stands below the names, on a line of its own inside the picture.
    const auto isBelow = [&biorhythm](QSize exportSize, WeekRow row) {
        const QSize size = weekPictureSize(row, exportSize);
        const ExportPicture picture = weekPicture(biorhythm, row, size);
        // After the bars the label, the zero line, a day's line, Monday's name.
        const int label = std::get<Text>(picture.drawing.primitives.at(14)).topLeft.y();
        const int name = std::get<Text>(picture.drawing.primitives.at(17)).topLeft.y();
        const int line = QFontMetrics(picture.font).height();
        return label >= name + line && label + line <= size.height();
    };
    for (const QSize size : {QSize(1523, 635), QSize(635, 449), QSize(627, 347)}) {
        for (const WeekRow row : {WeekRow::physical, WeekRow::emotional, WeekRow::intellectual}) {
            QVERIFY(isBelow(size, row));
        }
    }
    QVERIFY(!isBelow({1523, 635}, WeekRow::mean));
}

} // namespace quor::test
