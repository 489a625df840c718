#include "views/graph/TestGraphText.h"

#include "views/graph/GraphText.h"

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

GraphContents contents() {
    return {.title = u"Grafico di sistema"_s,
            .calculationDate = toDateValue(QDate(2004, 3, 15)),
            .values = {.physical = -0.73, .emotional = 1, .intellectual = 0.04, .mean = 0.1},
            .daysAround = 7,
            .drawn = {true, false, false, true, false}};
}

const QLocale italian(QLocale::Italian, QLocale::Italy);

} // namespace

void TestGraphText::valuesAreRoundedAsInThePopup() {
    QCOMPARE(dayTexts({.physical = -0.73, .emotional = 0.25, .intellectual = 0.35, .mean = -0.05}),
             (DayTexts{.physical = u"Fisico: -7"_s,
                       .emotional = u"Emotivo: 2"_s,
                       .intellectual = u"Intellettivo: 4"_s,
                       .mean = u"Media: 0"_s}));
}

void TestGraphText::aGraphInWords() {
    QCOMPARE(describeGraph(contents(), italian),
             u"Grafico di sistema. Data di calcolo: lunedì 15 marzo 2004. Fisico: -7, Emotivo: 10, "
             "Intellettivo: 0, Media: 1. 7 giorni prima e 7 dopo, da lunedì 8 marzo 2004 a lunedì "
             "22 marzo 2004. Disegnati: fisico, media."_s);
    GraphContents one = contents();
    one.daysAround = 1;
    QVERIFY(describeGraph(one, italian)
                .contains(u" 1 giorno prima e 1 dopo, da domenica 14 marzo 2004 a "_s));
}

void TestGraphText::nothingDrawn() {
    GraphContents none = contents();
    none.drawn = {};
    QVERIFY(describeGraph(none, italian).endsWith(u" 2004. Nessuna curva disegnata."_s));
}

void TestGraphText::withoutATitle() {
    GraphContents untitled = contents();
    untitled.title.clear();
    QVERIFY(describeGraph(untitled, italian).startsWith(u"Data di calcolo: "_s));
}

void TestGraphText::placeOfThePopup_data() {
    QTest::addColumn<int>("daysAround");
    QTest::addColumn<QRect>("shown");
    QTest::addColumn<QPoint>("place");
    const QRect whole(0, 0, 900, 400);
    // A margin of 22 and days of 21 pixels; the zero line is in the middle of the height.
    QTest::newRow("on the line") << 20 << whole << QPoint(22 + 20 * 21, 200);
    QTest::newRow("days without a width") << 5000 << whole << QPoint(22, 200);
    QTest::newRow("the line is covered") << 20 << QRect(500, 0, 101, 401) << QPoint(550, 200);
    QTest::newRow("the zero line is covered") << 20 << QRect(0, 0, 901, 101) << QPoint(450, 50);
}

void TestGraphText::placeOfThePopup() {
    QFETCH(int, daysAround);
    QFETCH(QRect, shown);
    QTEST(popupPlace(layOutGraph(QSize(900, 400), daysAround), shown), "place");
}

} // namespace quor::test
