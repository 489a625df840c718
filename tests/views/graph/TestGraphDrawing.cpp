#include "views/graph/TestGraphDrawing.h"

#include "core/Cycles.h"
#include "views/graph/GraphDrawing.h"

#include "support/Hermetic.h"

#include <QFile>
#include <QTextStream>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr ShowFlags everything{true, true, true, true, true};
constexpr std::array<Colour, 4> defaultColours{0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF};

QString number(qint64 value) {
    return QString::number(value);
}

QString patternName(Pattern pattern) {
    switch (pattern) {
    case Pattern::solid:
        return u"solid"_s;
    case Pattern::dash:
        return u"dash"_s;
    case Pattern::dashDot:
        return u"dashDot"_s;
    case Pattern::dashDotDot:
        break;
    }
    return u"dashDotDot"_s;
}

/// A primitive in the words of the reference file.
struct Describe {
    QString operator()(const Line& line) const {
        return QStringList{u"line"_s,
                           number(line.from.x()),
                           number(line.from.y()),
                           number(line.to.x()),
                           number(line.to.y()),
                           number(line.stroke.colour),
                           number(line.stroke.width)}
            .join(u' ');
    }
    QString operator()(const Curve& curve) const {
        QStringList words{u"curve"_s, number(curve.stroke.colour), number(curve.stroke.width),
                          patternName(curve.stroke.pattern)};
        for (const QPoint& point : curve.points) {
            words << number(point.x()) + u',' + number(point.y());
        }
        return words.join(u' ');
    }
    QString operator()(const FilledBox& box) const {
        return QStringList{u"box"_s,
                           number(box.area.left()),
                           number(box.area.top()),
                           number(box.area.right()),
                           number(box.area.bottom()),
                           number(box.fill)}
            .join(u' ');
    }
    QString operator()(const OutlineBox& /*box*/) const { return u"outline"_s; }
    QString operator()(const Text& text) const {
        return QStringList{u"text"_s, number(text.topLeft.x()), number(text.topLeft.y()), text.text}
                   .join(u' ') +
               (text.colour == black && !text.bold ? u""_s : u" in another look"_s);
    }
};

QStringList describe(const Drawing& drawing) {
    QStringList lines;
    for (const Primitive& primitive : drawing.primitives) {
        lines << std::visit(Describe{}, primitive);
    }
    return lines;
}

struct ReferenceCase {
    QString name;
    GraphPlot plot;
    GraphStyle style;
    std::int32_t startDayCount = 0;
    QStringList lines;
};

/// The cases of the reference file, with what goes in and what must come out.
QList<ReferenceCase> referenceCases() {
    QList<ReferenceCase> cases;
    QFile file(QStringLiteral(QUOR_TEST_DATA "/graph_reference.txt"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("the reference file is missing");
    }
    QTextStream stream(&file);
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        if (!line.startsWith(u"case "_s)) {
            cases.last().lines << line;
            continue;
        }
        const QStringList parts = line.sliced(5).split(u'|');
        const DateValue birth = toDateValue(QDate::fromString(parts[1], Qt::ISODate));
        const DateValue date = toDateValue(QDate::fromString(parts[2], Qt::ISODate));
        const int around = parts[3].toInt();
        const QString& show = parts[8];
        ReferenceCase reference;
        reference.name = parts[0];
        reference.plot = layOutGraph({parts[4].toInt(), parts[5].toInt()}, around);
        reference.style = {.show = {show.contains(u'p'), show.contains(u'e'), show.contains(u'i'),
                                    show.contains(u'm'), show.contains(u'b')},
                           .colours = defaultColours,
                           .dayIndexPosition = static_cast<std::uint8_t>(parts[6].toInt()),
                           .calculationDate = date,
                           .textHeight = parts[7].toInt()};
        reference.startDayCount = dayCount(birth, date) - around;
        cases << reference;
    }
    return cases;
}

QStringList texts(const Drawing& drawing) {
    QStringList found;
    for (const Primitive& primitive : drawing.primitives) {
        if (const auto* text = std::get_if<Text>(&primitive)) {
            found << text->text;
        }
    }
    return found;
}

} // namespace

void TestGraphDrawing::barColours_data() {
    QTest::addColumn<double>("physical");
    QTest::addColumn<double>("emotional");
    QTest::addColumn<double>("intellectual");
    QTest::addColumn<int>("colour");
    QTest::newRow("all low") << -1.0 << -1.0 << -1.0 << 0x737373;
    QTest::newRow("all middle") << 0.0 << 0.0 << 0.0 << 0x808080;
    QTest::newRow("all high") << 1.0 << 1.0 << 1.0 << 0x8C8C8C;
    QTest::newRow("red from physical") << 1.0 << 0.0 << -1.0 << 0x73808C;
    QTest::newRow("between") << 0.5 << -0.5 << 0.1 << 0x817986;
}

void TestGraphDrawing::barColours() {
    QFETCH(double, physical);
    QFETCH(double, emotional);
    QFETCH(double, intellectual);
    QFETCH(int, colour);
    QCOMPARE(barColour(physical, emotional, intellectual), colour);
}

void TestGraphDrawing::seriesOfOneDay() {
    const GraphSeries series = personSeries(-1, 1);
    QCOMPARE(series.physical.size(), std::size_t{3});
    QCOMPARE(series.bars.size(), std::size_t{2});
    QCOMPARE(series.physical[1], 0.0); // the day of birth
    QCOMPARE(series.mean[2],
             (std::sin(angleStep(Period::physical)) + std::sin(angleStep(Period::emotional)) +
              std::sin(angleStep(Period::intellectual))) /
                 3);
}

void TestGraphDrawing::layersComeInTheirOrder() {
    const GraphPlot plot = layOutGraph({400, 200}, 1);
    const Drawing drawing = drawGraph(personSeries(100, 1), plot,
                                      {.show = everything,
                                       .colours = defaultColours,
                                       .dayIndexPosition = 2,
                                       .calculationDate = 38061,
                                       .textHeight = 15});
    QStringList kinds;
    for (const QString& line : describe(drawing)) {
        kinds << line.section(u' ', 0, 0);
    }
    // Two bars, the mean once and each cycle three times, the zero line and three grid lines, two
    // numbers, the line of the date and two borders.
    QCOMPARE(kinds.join(u' '),
             u"box box curve curve curve curve curve curve curve curve curve curve "
             "line line line line text text line line line"_s);
}

void TestGraphDrawing::aKnownPerson() {
    const auto cases = referenceCases();
    QCOMPARE(cases.size(), 4);
    for (const ReferenceCase& reference : cases) {
        const Drawing drawing =
            drawGraph(personSeries(reference.startDayCount, reference.plot.daysAround),
                      reference.plot, reference.style, QLocale(u"it_IT"_s));
        const QStringList lines = describe(drawing);
        for (qsizetype i = 0; i < std::min(lines.size(), reference.lines.size()); ++i) {
            QVERIFY2(lines[i] == reference.lines[i],
                     qPrintable(u"%1, primitive %2\n is %3\n not %4"_s.arg(
                         reference.name, number(i), lines[i], reference.lines[i])));
        }
        QCOMPARE(lines.size(), reference.lines.size());
    }
}

void TestGraphDrawing::dayNumbers_data() {
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("row");
    QTest::newRow("Nessuno") << 0 << -1;
    QTest::newRow("Alto") << 1 << 10;
    QTest::newRow("Centro") << 2 << 200;
    QTest::newRow("Basso") << 3 << 375;
    QTest::newRow("no position") << 4 << -1;
    QTest::newRow("no position, the last byte") << 255 << -1;
}

void TestGraphDrawing::dayNumbers() {
    QFETCH(int, position);
    QFETCH(int, row);
    const GraphPlot plot = layOutGraph({800, 400}, 2);
    const Drawing drawing = drawGraph(personSeries(0, 2), plot,
                                      {.colours = defaultColours,
                                       .dayIndexPosition = static_cast<std::uint8_t>(position),
                                       .calculationDate = toDateValue(QDate(2004, 3, 1)),
                                       .textHeight = 15},
                                      QLocale(u"it_IT"_s));
    QCOMPARE(texts(drawing),
             row < 0 ? QStringList{} : (QStringList{u"28"_s, u"29"_s, u"01"_s, u"02"_s}));
    for (const Primitive& primitive : drawing.primitives) {
        if (const auto* text = std::get_if<Text>(&primitive)) {
            QCOMPARE(text->topLeft.y(), row);
        }
    }
}

void TestGraphDrawing::nothingTicked() {
    const Drawing drawing = drawGraph(personSeries(0, 1), layOutGraph({400, 200}, 1),
                                      {.colours = defaultColours,
                                       .dayIndexPosition = 2,
                                       .calculationDate = 38061,
                                       .textHeight = 15});
    // Zero line, three grid lines, two numbers, the line of the date, two borders.
    QCOMPARE(drawing.primitives.size(), std::size_t{9});
}

void TestGraphDrawing::dayNumbersFollowTheLocale() {
    const Drawing drawing = drawGraph(personSeries(0, 1), layOutGraph({400, 200}, 1),
                                      {.colours = defaultColours,
                                       .dayIndexPosition = 2,
                                       .calculationDate = toDateValue(QDate(2004, 12, 25))},
                                      QLocale(u"en_US"_s));
    QCOMPARE(texts(drawing),
             (QStringList{u"12"_s, u"12"_s})); // the first two characters: the month
}

void TestGraphDrawing::severalYearsOfDays() {
    const std::int32_t around = 32787;
    const GraphPlot plot = layOutGraph({800, 400}, around);
    const Drawing drawing = drawGraph(personSeries(-around, around), plot,
                                      {.show = everything,
                                       .colours = defaultColours,
                                       .dayIndexPosition = 2,
                                       .calculationDate = toDateValue(QDate(120, 1, 1))});
    QCOMPARE(drawing.primitives.size(), static_cast<std::size_t>(3 * 2 * around + 1 + 10 + 1 + 3));
    QCOMPARE(texts(drawing).size(), 2 * around);
}

} // namespace quor::test
