#include "views/graph/TestWeekDrawing.h"

#include "views/graph/WeekDrawing.h"
#include "views/graph/week_reference.h"

#include <QFontMetrics>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QLocale italian(QLocale::Italian, QLocale::Italy);
constexpr WeeklyColours standard{0x0000FF, 0x00FF00, 0x00FFFF};

/// A primitive in the notation of the reference.
class Notation {
  public:
    QString operator()(const Line& line) const {
        return u"line %1 %2 %3"_s.arg(point(line.from), point(line.to), stroke(line.stroke));
    }
    QString operator()(const FilledBox& box) const {
        return u"box %1 %2"_s.arg(corners(box.area), colour(box.fill));
    }
    QString operator()(const OutlineBox& box) const {
        return u"frame %1 %2"_s.arg(corners(box.area), stroke(box.stroke));
    }
    QString operator()(const Text& text) const {
        const QString words = u"text %1 %2 %3"_s.arg(point(text.topLeft),
                                                     text.bold ? u"bold"_s : u"plain"_s, text.text);
        return text.colour == black ? words : words + u" in "_s + colour(text.colour);
    }
    QString operator()(const Curve& /*curve*/) const { return u"curve"_s; }

  private:
    static QString point(QPoint at) { return u"%1 %2"_s.arg(at.x()).arg(at.y()); }
    static QString corners(QRect area) {
        return point(area.topLeft()) + u' ' + point(area.bottomRight());
    }
    static QString colour(Colour value) { return u"%1"_s.arg(value, 6, 16, QChar(u'0')); }
    static QString stroke(const Stroke& value) {
        const QString text = u"%1 %2"_s.arg(colour(value.colour)).arg(value.width);
        return value.pattern == Pattern::solid ? text : text + u" dashed"_s;
    }
};

QStringList notation(const Drawing& drawing) {
    QStringList lines;
    for (const Primitive& primitive : drawing.primitives) {
        lines << std::visit(Notation(), primitive);
    }
    return lines;
}

template<typename T> std::vector<T> all(const Drawing& drawing) {
    std::vector<T> found;
    for (const Primitive& primitive : drawing.primitives) {
        if (const T* one = std::get_if<T>(&primitive)) {
            found.push_back(*one);
        }
    }
    return found;
}

const WeekPlot plot = layOutWeek({800, 200});

QFont sans(int pixels) {
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(pixels);
    return font;
}

} // namespace

void TestWeekDrawing::sameAsReference_data() {
    QTest::addColumn<QStringList>("lines");
    for (const char* text : weekReference) {
        const QStringList lines = QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
        QTest::newRow(qPrintable(lines.constFirst())) << lines;
    }
}

void TestWeekDrawing::sameAsReference() {
    QFETCH(QStringList, lines);
    const QStringList head = lines.takeFirst().split(u' ');
    Biorhythm biorhythm;
    biorhythm.birthDate = toDateValue(QDate::fromString(head.at(1), Qt::ISODate));
    biorhythm.calculationDate = toDateValue(QDate::fromString(head.at(2), Qt::ISODate));
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    const Week week = weekOf(biorhythm);
    const auto row = static_cast<WeekRow>(head.at(3).toInt());
    const QSize picture(head.at(4).toInt(), head.at(5).toInt());

    const Drawing drawing = drawWeekRow(week.weekStartDayCount, row, layOutWeek(picture),
                                        {.colours = standard,
                                         .weekday = week.weekday,
                                         .labelWidth = head.at(6).toInt(),
                                         .labelDrop = head.at(7).toInt()},
                                        italian);
    QCOMPARE(notation(drawing), lines);
}

void TestWeekDrawing::lowestValueHangsDownInTheStableColour() {
    // Day 21 of 28 is the lowest point of the emotional cycle.
    const auto boxes =
        all<FilledBox>(drawWeekRow(21, WeekRow::emotional, plot, {.colours = standard}, italian));
    QCOMPARE(boxes.size(), std::size_t{14});
    QCOMPARE(boxes[0].area.top(), plot.weekBaseline);
    QCOMPARE(boxes[0].area.bottom(), plot.bottom());
    QCOMPARE(boxes[0].fill, standard[1]);
    // And day 7 its highest.
    const auto high =
        all<FilledBox>(drawWeekRow(7, WeekRow::emotional, plot, {.colours = standard}, italian));
    QCOMPARE(high[0].area.top(), plot.top());
    QCOMPARE(high[0].area.bottom(), plot.weekBaseline);
    QCOMPARE(high[0].fill, standard[2]);
}

void TestWeekDrawing::meanHasTheSameLimits() {
    bool critical = false;
    bool stable = false;
    bool optimal = false;
    for (std::int32_t start = 0; start < 2000; start += 7) {
        const HalfDays values = weekValues(start, WeekRow::mean);
        const auto boxes =
            all<FilledBox>(drawWeekRow(start, WeekRow::mean, plot, {.colours = standard}, italian));
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double value = values.at(i);
            const bool isOptimal = value >= 0.8;
            const bool isCritical = value >= -0.3 && value <= 0.3;
            QCOMPARE(boxes.at(i).fill, standard.at(isOptimal ? 2 : isCritical ? 0 : 1));
            optimal = optimal || isOptimal;
            critical = critical || isCritical;
            stable = stable || (!isOptimal && !isCritical);
        }
    }
    QVERIFY(critical && stable && optimal);
}

void TestWeekDrawing::eachStateHasItsColour() {
    const WeeklyColours colours{0x112233, 0x445566, 0x778899};
    // The physical cycle from its start: 0, 0.14 and 0.27 are critical, 0.40 to 0.73 stable, 0.82
    // and above optimal.
    const auto boxes =
        all<FilledBox>(drawWeekRow(0, WeekRow::physical, plot, {.colours = colours}, italian));
    std::vector<Colour> fills;
    std::transform(boxes.begin(), boxes.end(), std::back_inserter(fills),
                   [](const FilledBox& box) { return box.fill; });
    std::vector<Colour> expected(3, colours[0]);
    expected.insert(expected.end(), 4, colours[1]);
    expected.insert(expected.end(), 7, colours[2]);
    QCOMPARE(fills, expected);
}

void TestWeekDrawing::gridAndFrameCoverTheBars() {
    const Drawing drawing =
        drawWeekRow(3, WeekRow::mean, plot, {.colours = standard, .weekday = 7}, italian);
    const auto& primitives = drawing.primitives;
    const auto isBox = [](const Primitive& p) { return std::holds_alternative<FilledBox>(p); };
    QVERIFY(std::all_of(primitives.begin(), primitives.begin() + 14, isBox));
    QVERIFY(std::none_of(primitives.begin() + 14, primitives.end(), isBox));
    QVERIFY(std::holds_alternative<OutlineBox>(primitives.back()));
    const QRect frame = std::get<OutlineBox>(primitives.back()).area;
    QCOMPARE(frame.left(), plot.x(6));
    QCOMPARE(frame.right(), plot.right());
}

void TestWeekDrawing::namesAreTheLocales() {
    const auto texts = [](const QLocale& locale, QLocale::FormatType names) {
        QStringList words;
        for (const Text& text : all<Text>(drawWeekRow(
                 0, WeekRow::physical, plot, {.colours = standard, .names = names}, locale))) {
            words << text.text;
        }
        return words.join(u' ');
    };
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    const auto words = QLocale::ShortFormat;
    QCOMPARE(texts(italian, words), u"FISICO lun mar mer gio ven sab dom"_s);
    QCOMPARE(texts(american, words), u"FISICO Mon Tue Wed Thu Fri Sat Sun"_s);
    const auto letters = QLocale::NarrowFormat;
    QCOMPARE(texts(italian, letters), u"FISICO L M M G V S D"_s);
    QCOMPARE(texts(american, letters), u"FISICO M T W T F S S"_s);
}

void TestWeekDrawing::textsTakeTheLargestFontThatFits() {
    const std::vector<QFont> fonts{sans(13), sans(12), sans(11), sans(10), sans(9), sans(8)};
    const auto size = [&fonts](QSize picture, const QLocale& locale) {
        const WeekTexts texts = layOutTexts(layOutWeek(picture), fonts, locale);
        const int lines = texts.labelDrop == 0 ? 1 : 2;
        const int drop = labelDrop(layOutWeek(picture), QFontMetrics(texts.font).height());
        return lines == 1 || texts.labelDrop == drop
                   ? u"%1 pixels, lines %2%3"_s.arg(texts.font.pixelSize())
                         .arg(lines)
                         .arg(texts.names == QLocale::ShortFormat ? QString() : u", letters"_s)
                   : u"neither on the line nor below it"_s;
    };
    QCOMPARE(size({1515, 159}, italian), u"13 pixels, lines 1"_s);
    QCOMPARE(size({501, 400}, italian), u"13 pixels, lines 2"_s);
    // Below the bars of a low row there is no room for two lines of the largest.
    const QString low = size({501, 80}, italian);
    QVERIFY2(low.endsWith(u" pixels, lines 2"_s) && !low.startsWith(u"13"_s), qPrintable(low));
    // Names of three letters in columns of 12 pixels.
    const QString narrow = size({110, 112}, italian);
    QVERIFY2(narrow.endsWith(u"letters"_s), qPrintable(narrow));
    // Nothing fits: the label is wider than the picture.
    QCOMPARE(size({40, 100}, italian), u"8 pixels, lines 2, letters"_s);
}

void TestWeekDrawing::textsOfARowDoNotMeet_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QString>("locale");
    for (const auto& [width, height] :
         {std::pair(1515, 159), std::pair(501, 159), std::pair(627, 112), std::pair(205, 112),
          std::pair(621, 87), std::pair(203, 87), std::pair(160, 69), std::pair(963, 124)}) {
        for (const QString& locale : {u"it_IT"_s, u"en_US"_s, u"de_DE"_s, u"pt_PT"_s}) {
            QTest::newRow(qPrintable(u"%1 by %2, %3"_s.arg(width).arg(height).arg(locale)))
                << QSize(width, height) << locale;
        }
    }
}

void TestWeekDrawing::textsOfARowDoNotMeet() {
    QFETCH(QSize, picture);
    QFETCH(QString, locale);
    const WeekPlot row = layOutWeek(picture);
    const WeekTexts texts = layOutTexts(
        row, {sans(13), sans(12), sans(11), sans(10), sans(9), sans(8)}, QLocale(locale));
    const WeekStyle style{.colours = standard,
                          .labelWidth = labelWidth(texts.font, WeekRow::intellectual),
                          .labelDrop = texts.labelDrop,
                          .names = texts.names};
    std::vector<QRect> areas;
    for (const Text& text :
         all<Text>(drawWeekRow(0, WeekRow::intellectual, row, style, QLocale(locale)))) {
        QFont font = texts.font;
        font.setBold(text.bold);
        const QFontMetrics metrics(font);
        areas.emplace_back(text.topLeft,
                           QSize(metrics.horizontalAdvance(text.text), metrics.height()));
    }
    QCOMPARE(areas.size(), std::size_t{8});
    for (std::size_t i = 0; i < areas.size(); ++i) {
        QVERIFY(QRect(QPoint(), picture).contains(areas.at(i)));
        for (std::size_t j = i + 1; j < areas.size(); ++j) {
            QVERIFY(!areas.at(i).intersects(areas.at(j)));
        }
    }
}

} // namespace quor::test
