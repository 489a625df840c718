#include "views/analysis/TestCompatibility.h"

#include "core/Cycles.h"
#include "views/analysis/Compatibility.h"
#include "views/analysis/CompatibilityDrawing.h"
#include "views/analysis/CompatibilityPlot.h"

#include <QFile>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr DateValue birth = 29945; // 25 December 1981

Compatibility apart(double days) {
    return compatibility(birth, birth + days).value_or(Compatibility{});
}

const QLocale& italian() {
    static const QLocale locale(QLocale::Italian, QLocale::Italy);
    return locale;
}

QStringList texts(const Compatibility& compatibility, const QLocale& locale = italian()) {
    QStringList lines;
    for (const StateItem panel : compatibilityPanels) {
        lines << compatibilityText(compatibility, panel, locale);
    }
    return lines;
}

bool isNear(double value, double expected) {
    return std::abs(value - expected) < 0.005;
}

/// The lines of the committed reference; those of one panel follow its header.
QStringList referenceLines() {
    QFile file(QString::fromUtf8(QUOR_COMPATIBILITY_REFERENCE));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

DateValue date(const QString& text) {
    return toDateValue(QDate::fromString(text, Qt::ISODate));
}

/// A primitive as a line of the reference.
class Describe {
  public:
    QString operator()(const FilledBox& box) const {
        return join(u"box"_s, {corners(box.area), QString::number(box.fill)});
    }
    QString operator()(const OutlineBox& box) const {
        return join(u"frame"_s, {corners(box.area), pen(box.stroke)});
    }
    QString operator()(const Line& line) const {
        return join(u"line"_s, {corners(QRect(line.from, line.to)), pen(line.stroke)});
    }
    QString operator()(const Curve& curve) const {
        QStringList points;
        for (const QPoint point : curve.points) {
            points << u"%1,%2"_s.arg(point.x()).arg(point.y());
        }
        return join(u"curve"_s, {pen(curve.stroke), points.join(u' ')});
    }
    QString operator()(const Text& text) const {
        return join(u"text"_s,
                    {QString::number(text.topLeft.x()), QString::number(text.topLeft.y()),
                     QString::number(text.colour), text.bold ? u"bold"_s : u"plain"_s, text.text});
    }

  private:
    static QString join(const QString& kind, const QStringList& fields) {
        return kind + u' ' + fields.join(u' ');
    }
    static QString corners(const QRect& area) {
        return u"%1 %2 %3 %4"_s.arg(area.left())
            .arg(area.top())
            .arg(area.right())
            .arg(area.bottom());
    }
    static QString pen(const Stroke& stroke) {
        return u"%1 %2"_s.arg(stroke.colour).arg(stroke.width);
    }
};

QStringList describe(const Drawing& drawing) {
    QStringList lines;
    for (const Primitive& primitive : drawing.primitives) {
        lines << std::visit(Describe{}, primitive);
    }
    return lines;
}

} // namespace

void TestCompatibility::sameBirth() {
    QCOMPARE(
        compatibility(birth, birth),
        (Compatibility{.physical = 100, .emotional = 100, .intellectual = 100, .overall = 100.0F}));
    // And again after as many days as bring all three cycles back: 23 × 28 × 33.
    QCOMPARE(apart(21252), apart(0));
}

void TestCompatibility::fourteenDaysApart() {
    const Compatibility result = apart(14);
    QCOMPARE(result.physical, std::abs(14.0 * -200 / 23 + 100));
    QVERIFY(isNear(result.physical, 21.74));
    QCOMPARE(result.emotional, 0.0);
    QVERIFY(isNear(result.intellectual, 15.15));
    QVERIFY(isNear(result.overall, 12.30));
    // The overall one is a single-precision number.
    const double sum = result.physical + result.emotional + result.intellectual;
    QCOMPARE(result.overall, static_cast<float>(sum / 3));
    QVERIFY(static_cast<double>(result.overall) != sum / 3);
}

void TestCompatibility::halfAPeriodApart() {
    QVERIFY(isNear(apart(11).physical, 4.35));
    QVERIFY(isNear(apart(12).physical, 4.35));
    QVERIFY(isNear(apart(16).intellectual, 3.03));
    QVERIFY(isNear(apart(17).intellectual, 3.03));
}

void TestCompatibility::risesAgainTowardsAWholePeriod() {
    for (int days = 1; days <= 11; ++days) {
        QVERIFY(apart(days).physical < apart(days - 1).physical);
        QVERIFY(apart(23 - days).physical < apart(24 - days).physical);
        QVERIFY(isNear(apart(days).physical, apart(23 - days).physical));
    }
    QCOMPARE(apart(23).physical, 100.0);
    QCOMPARE(apart(28).emotional, 100.0);
    QCOMPARE(apart(33).intellectual, 100.0);
}

void TestCompatibility::orderDoesNotMatter() {
    for (const int days : {1, 14, 100, 12345, 32767}) {
        QCOMPARE(compatibility(birth + days, birth), compatibility(birth, birth + days));
    }
}

void TestCompatibility::halfDaysGoToTheEvenOne() {
    QCOMPARE(apart(13.5), apart(14));
    QCOMPARE(apart(14.5), apart(14));
    QVERIFY(apart(14.75) == apart(15) && apart(14) != apart(15));
}

void TestCompatibility::longestDifference() {
    // 32767 = 1424 × 23 + 15 = 1170 × 28 + 7 = 992 × 33 + 31
    const auto longest = compatibility(birth, birth - 32767);
    QVERIFY(longest);
    QVERIFY(isNear(longest->physical, 30.43));
    QCOMPARE(longest->emotional, 50.0);
    QVERIFY(isNear(longest->intellectual, 87.88));
    QVERIFY(compatibility(birth, birth - 32767.25));
    QVERIFY(!compatibility(birth, birth - 32767.5)); // goes to 32768
    QVERIFY(!compatibility(birth, birth - 32768));
    QVERIFY(!compatibility(birth - 32768, birth));
    QVERIFY(!compatibility(birth, std::numeric_limits<double>::quiet_NaN()));
}

void TestCompatibility::onlyCommonBitsAreCompared() {
    QVERIFY(!areCompared(8, 16));
    QVERIFY(!areCompared(16, 8));
    QVERIFY(areCompared(8, 8));
    QVERIFY(areCompared(8, 24));
    QVERIFY(areCompared(16402, 17338));
    QVERIFY(!areCompared(0, 16402)); // one of them is not chosen
    QVERIFY(!areCompared(0, 0));
    QVERIFY(areCompared(-1, 16402)); // before a birth all high bits are set
    QVERIFY(areCompared(-8, -16));
    QVERIFY(!areCompared(-8, 7));
}

void TestCompatibility::texts() {
    QCOMPARE(
        test::texts(apart(14)),
        (QStringList{u"Compatibilità: 12,30%"_s, u"Compatibilità fisica: 21,74%"_s,
                     u"Compatibilità emotiva: 0,00%"_s, u"Compatibilità intellettiva: 15,15%"_s}));
    QCOMPARE(test::texts(apart(0)),
             (QStringList{u"Compatibilità: 100,00%"_s, u"Compatibilità fisica: 100,00%"_s,
                          u"Compatibilità emotiva: 100,00%"_s,
                          u"Compatibilità intellettiva: 100,00%"_s}));
    QCOMPARE(compatibilityText({.physical = 4.35}, StateItem::physical),
             u"Compatibilità fisica: %1%"_s.arg(QLocale().toString(4.35, 'f', 2)));
}

void TestCompatibility::textsFollowTheLocale() {
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    QCOMPARE(test::texts(apart(14), english).at(1), u"Compatibilità fisica: 21.74%"_s);
}

void TestCompatibility::layouts_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("textHeight");
    QTest::addColumn<CompatibilityPlot>("plot");
    const auto row = [](QSize size, int textHeight, int x0, double dx, int yMid, int amplitude,
                        QPoint text) {
        QTest::addRow("%d x %d, text %d", size.width(), size.height(), textHeight)
            << size << textHeight
            << CompatibilityPlot{
                   .x0 = x0, .dx = dx, .yMid = yMid, .amplitude = amplitude, .textTopLeft = text};
    };
    row({366, 217}, 15, 7, 351 / 40.0, 115, 93, {7, 3});
    row({415, 218}, 15, 7, 10, 116, 94, {7, 3});
    row({281, 105}, 15, 7, 266 / 40.0, 59, 37, {7, 3});
    row({700, 401}, 30, 15, 669 / 40.0, 215, 170, {15, 7});
    row({209, 100}, 6, 4, 5, 52, 42, {4, 2}); // never less than four pixels beside it
}

void TestCompatibility::layouts() {
    QFETCH(QSize, size);
    QFETCH(int, textHeight);
    QFETCH(CompatibilityPlot, plot);
    const CompatibilityPlot made = layOutCompatibility(size, textHeight);
    QCOMPARE(made.x0, plot.x0);
    QCOMPARE(made.dx, plot.dx);
    QCOMPARE(made.yMid, plot.yMid);
    QCOMPARE(made.amplitude, plot.amplitude);
    QCOMPARE(made.textTopLeft, plot.textTopLeft);
    // The text and the plot do not meet, and the same margin lies on both sides.
    QVERIFY(made.textTopLeft.y() + textHeight < made.top());
    QCOMPARE(size.width() - 1 - made.right(), made.x0);
    const int below = size.height() - 1 - made.bottom();
    QVERIFY(below == made.x0 || below == made.x0 + 1);
}

void TestCompatibility::plotMapsDaysAndValues() {
    const CompatibilityPlot plot = layOutCompatibility({366, 217}, 15);
    QCOMPARE(CompatibilityPlot::lastDay(), 40);
    QCOMPARE(plot.x(0), 7);
    QCOMPARE(plot.x(1), 16);   // 15.775
    QCOMPARE(plot.x(2), 25);   // 24.55
    QCOMPARE(plot.x(20), 182); // 182.5 to the even number
    QCOMPARE(plot.x(40), 358);
    QCOMPARE(plot.y(0), 115);
    QCOMPARE(plot.y(1), 22);
    QCOMPARE(plot.y(-1), 208);
    QCOMPARE(plot.y(0.5 / 93), 114); // 114.5 to the even number
    QCOMPARE(plot.top(), 22);
    QCOMPARE(plot.bottom(), 208);
}

void TestCompatibility::panelsTooSmall() {
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(10, 300), QSize(300, 20)}) {
        const CompatibilityPlot plot = layOutCompatibility(size, 15);
        QVERIFY(plot.dx >= 0);
        QVERIFY(plot.amplitude >= 0);
        QVERIFY(plot.top() <= plot.bottom());
        QVERIFY(plot.x0 <= plot.right());
    }
    // The smallest size leaves something to see and the text inside.
    const QSize smallest = smallestCompatibilityPanel(260, 15);
    const CompatibilityPlot plot = layOutCompatibility(smallest, 15);
    QVERIFY(plot.amplitude >= 2 * 15);
    QVERIFY(plot.textTopLeft.x() + 260 <= plot.right() + 1);
}

void TestCompatibility::secondPersonIsFiftyLess() {
    QCOMPARE(secondPersonColour(0x00FFFF), 0x00FFCD); // yellow: red 255 to 205
    QCOMPARE(secondPersonColour(0x0000FF), 0x0000CD);
    QCOMPARE(secondPersonColour(0xFF0000), 0xFEFFCE); // blue: borrows from green and blue
    QCOMPARE(secondPersonColour(0x00FF00), 0x00FECE);
    QCOMPARE(secondPersonColour(50), 0);
    QCOMPARE(secondPersonColour(49), 0xFFFFFF); // below nothing
    QCOMPARE(secondPersonColour(0), 0xFFFFCE);
    // A byte above the colour, which only a damaged file has, changes nothing.
    QCOMPARE(secondPersonColour(0x7F0000FF), 0x0000CD);
    QCOMPARE(secondPersonColour(std::numeric_limits<Colour>::min()), 0xFFFFCE);
}

void TestCompatibility::emptyPanelIsPlain() {
    QCOMPARE(describe(drawEmptyPanel({300, 200})),
             QStringList{u"box 0 0 299 199 %1"_s.arg(0x202020)});
}

void TestCompatibility::panelInItsOrder() {
    const QSize size(366, 217);
    const CompatibilityPlot plot = layOutCompatibility(size, 15);
    const Drawing drawing = drawCompatibilityPanel({.item = StateItem::physical,
                                                    .firstDayCount = 23,
                                                    .secondDayCount = 37,
                                                    .firstColour = 0xFF0000,
                                                    .text = u"Compatibilità fisica: 21,74%"_s},
                                                   size, plot);
    QString kinds;
    for (const QString& line : describe(drawing)) {
        kinds += line.front();
    }
    QCOMPARE(kinds, u"b"_s + QString(6, u'c') + QString(42, u'l') + u"ft"_s);

    const auto curve = [&](std::size_t index) {
        return std::get<Curve>(drawing.primitives[index]);
    };
    for (std::size_t person = 0; person < 2; ++person) {
        const Curve middle = curve(2 + 3 * person);
        QCOMPARE(middle.points.size(), std::size_t{41});
        QCOMPARE(middle.stroke, (Stroke{.colour = person == 0 ? 0xFF0000 : 0xFEFFCE, .width = 1}));
        for (std::size_t day = 0; day < middle.points.size(); ++day) {
            QCOMPARE(curve(1 + 3 * person).points[day], middle.points[day] - QPoint(1, 1));
            QCOMPARE(curve(3 + 3 * person).points[day], middle.points[day] + QPoint(1, 1));
        }
    }
    // The first person's cycle begins anew on the calculation date; the other's is 14 days on.
    QCOMPARE(curve(2).points[0], QPoint(plot.x0, plot.yMid));
    QCOMPARE(curve(5).points[0].y(), plot.y(cycleValue(14, Period::physical)));
    QCOMPARE(curve(5).points[0].y(), curve(2).points[14].y());
    QCOMPARE(std::get<Text>(drawing.primitives.back()),
             (Text{.topLeft = {7, 3},
                   .text = u"Compatibilità fisica: 21,74%"_s,
                   .colour = 0xFFFFFF,
                   .bold = true}));
}

void TestCompatibility::eachPersonHasOwnPhases() {
    const QSize size(1000, 1000);
    const CompatibilityPlot plot = layOutCompatibility(size, 15);
    for (const StateItem item : compatibilityPanels) {
        for (const std::int32_t count : {0, 8116, -5, -20000}) {
            const Drawing drawing = drawCompatibilityPanel({.item = item,
                                                            .firstDayCount = count,
                                                            .secondDayCount = count + 3,
                                                            .firstColour = black,
                                                            .text = {}},
                                                           size, plot);
            const auto first = std::get<Curve>(drawing.primitives[2]).points;
            const auto second = std::get<Curve>(drawing.primitives[5]).points;
            const auto value = [item](std::int32_t day) {
                return item == StateItem::mean
                           ? cycleMean(day)
                           : cycleValue(day, periods.at(static_cast<std::size_t>(item)));
            };
            for (int day = 0; day <= 40; ++day) {
                const auto index = static_cast<std::size_t>(day);
                QVERIFY(std::abs(first[index].y() - plot.y(value(count + day))) <= 1);
                QVERIFY(std::abs(second[index].y() - plot.y(value(count + 3 + day))) <= 1);
            }
        }
    }
}

void TestCompatibility::referencePairsAgree() {
    int pairs = 0;
    int overflows = 0;
    int apartInBits = 0;
    for (const QString& line : referenceLines()) {
        const QStringList fields = line.split(u' ');
        if (fields[0] != u"pair"_s) {
            continue;
        }
        ++pairs;
        const DateValue calculation = date(fields[3]);
        const bool compared = areCompared(dayCount(date(fields[1]), calculation),
                                          dayCount(date(fields[2]), calculation));
        QCOMPARE(compared ? u"yes"_s : u"no"_s, fields[4]);
        apartInBits += compared ? 0 : 1;
        const auto result = compatibility(date(fields[1]), date(fields[2]));
        if (fields[5] == u"overflow"_s) {
            ++overflows;
            QVERIFY(!result);
            continue;
        }
        QVERIFY(result);
        QVERIFY(result->physical == fields[5].toDouble());
        QVERIFY(result->emotional == fields[6].toDouble());
        QVERIFY(result->intellectual == fields[7].toDouble());
        QVERIFY(static_cast<double>(result->overall) == fields[8].toDouble());
        QCOMPARE(test::texts(*result),
                 (QStringList{u"Compatibilità: %1%"_s.arg(fields[12]),
                              u"Compatibilità fisica: %1%"_s.arg(fields[9]),
                              u"Compatibilità emotiva: %1%"_s.arg(fields[10]),
                              u"Compatibilità intellettiva: %1%"_s.arg(fields[11])}));
    }
    QCOMPARE(pairs, 300);
    QVERIFY(overflows > 0 && overflows < pairs / 2);
    QVERIFY(apartInBits > 0 && apartInBits < pairs / 2);
}

void TestCompatibility::referencePanelsAgree() {
    const QStringList lines = referenceLines();
    int panels = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringList fields = lines[i].split(u' ');
        if (fields[0] != u"panel"_s) {
            continue;
        }
        ++panels;
        const DateValue calculation = date(fields[3]);
        const auto item = static_cast<StateItem>(fields[4].toInt());
        const QSize size(fields[5].toInt(), fields[6].toInt());
        const auto result = compatibility(date(fields[1]), date(fields[2]));
        QVERIFY(result);
        const ComparedCurves curves{.item = item,
                                    .firstDayCount = dayCount(date(fields[1]), calculation),
                                    .secondDayCount = dayCount(date(fields[2]), calculation),
                                    .firstColour = fields[8].toInt(),
                                    .text = compatibilityText(*result, item, italian())};
        const QStringList drawn = describe(
            drawCompatibilityPanel(curves, size, layOutCompatibility(size, fields[7].toInt())));
        QCOMPARE(lines.mid(i + 1, drawn.size()), drawn);
        const qsizetype after = i + 1 + drawn.size();
        QVERIFY(after == lines.size() || lines[after].startsWith(u"panel "_s));
    }
    QCOMPARE(panels, 4);
}

void TestCompatibility::aPanelInWords() {
    const Compatibility result{
        .physical = 21.739, .emotional = 0, .intellectual = 15.15, .overall = 12.296F};
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    const std::array names{u"Anna & Lia"_s, u"Bruno"_s};
    QCOMPARE(describeComparison(result, StateItem::mean, names, italian),
             u"Compatibilità: 12,30%, tra Anna & Lia e Bruno"_s);
    QCOMPARE(describeComparison(result, StateItem::physical, names, italian),
             u"Compatibilità fisica: 21,74%, tra Anna & Lia e Bruno"_s);
    QCOMPARE(describeNoComparison(), u"Nessun confronto: scegliere due bioritmi"_s);
}

} // namespace quor::test
