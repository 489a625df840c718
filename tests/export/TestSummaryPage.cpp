#include "export/TestSummaryPage.h"

#include "core/Clock.h"
#include "export/SummaryPage.h"

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Biorhythm person(QDate calculation) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Anna"_s;
    program.biorhythm.calculationDate = toDateValue(calculation);
    return program.biorhythm;
}

QByteArray page(const Biorhythm& biorhythm) {
    return summaryPage(biorhythm, {.graph = true, .weekly = true}, u"P_"_s, PageVariant::screen,
                       QLocale(u"it_IT"_s));
}

} // namespace

void TestSummaryPage::colours_data() {
    QTest::addColumn<Colour>("colour");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("red") << Colour{0x0000FF} << QByteArray("FF0000");
    QTest::newRow("zeros in front") << Colour{0x000001} << QByteArray("010000");
    QTest::newRow("nothing") << Colour{0} << QByteArray("000000");
    QTest::newRow("each channel") << Colour{0xABCDEF} << QByteArray("EFCDAB");
    QTest::newRow("five digits") << Colour{0x0A0B0C} << QByteArray("0C0B0A");
    QTest::newRow("beyond a colour") << Colour{0x12345678} << QByteArray("783412");
    QTest::newRow("negative") << Colour{-1} << QByteArray("FFFFFF");
}

void TestSummaryPage::colours() {
    QFETCH(Colour, colour);
    QFETCH(QByteArray, text);
    QCOMPARE(colourHex(colour), text);
}

void TestSummaryPage::theWeekOfASunday() {
    QVERIFY(page(person(QDate(2026, 11, 22)))
                .contains("<B>Grafico per la settimana dal 16/11/2026 al 22/11/2026</B>"));
    QVERIFY(page(person(QDate(2026, 11, 23)))
                .contains("<B>Grafico per la settimana dal 23/11/2026 al 29/11/2026</B>"));
}

void TestSummaryPage::damagedSpansShowADay() {
    Biorhythm biorhythm = person(QDate(2026, 11, 22));
    biorhythm.graphDaysAdjust = -500;
    QVERIFY(page(biorhythm).contains("<B>Grafico dal 21/11/2026 al 23/11/2026</B>"));
}

} // namespace quor::test
