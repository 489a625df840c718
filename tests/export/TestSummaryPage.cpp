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

void TestSummaryPage::addresses_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("address");
    QTest::newRow("plain") << u"D'Amico-1 (a)_x.png"_s << QByteArray("D'Amico-1 (a)_x.png");
    QTest::newRow("of the code page") << u"Niccolò.png"_s << QByteArray("Niccol\xF2.png");
    QTest::newRow("of an address") << u"50% #1?.png"_s << QByteArray("50%25 %231%3F.png");
    QTest::newRow("of the page") << u"a&b\"<c>"_s << QByteArray("a&amp;b%22%3Cc%3E");
    QTest::newRow("blank in front") << u"  a"_s << QByteArray("%20 a");
    QTest::newRow("beyond the code page")
        << u"李\U0001f600.png"_s << QByteArray("%E6%9D%8E%F0%9F%98%80.png");
}

void TestSummaryPage::addresses() {
    QFETCH(QString, name);
    QFETCH(QByteArray, address);
    QCOMPARE(pictureAddress(name, Accents::kept), address);
}

void TestSummaryPage::severalAccentsAreEncoded() {
    QCOMPARE(pictureAddress(u"Mosè D'Aloè"_s, Accents::encoded),
             QByteArray("Mos%C3%A8 D'Alo%C3%A8"));
    for (const auto& [name, prefix, accents] :
         {std::tuple{u"Anna"_s, u"Anna_"_s, Accents::kept},
          {u"Niccolò"_s, u"Casa_Niccolò_"_s, Accents::kept},
          {u"Niccolò"_s, u"Però_Niccolò_"_s, Accents::encoded},
          {u"Mosè D'Aloè"_s, u"Mosè D'Aloè_"_s, Accents::encoded},
          // The prefix is that of a file: the name stands in the page all the same.
          {u"Mosè D'Aloè"_s, u"Mose_"_s, Accents::encoded},
          {u"Niccolò"_s, u"Però_"_s, Accents::encoded},
          {u"Niccolò"_s, u"Niccolo_"_s, Accents::kept}}) {
        QCOMPARE(accentsInAddresses(name, prefix), accents);
    }
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
