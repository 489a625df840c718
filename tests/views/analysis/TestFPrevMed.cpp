#include "views/analysis/TestFPrevMed.h"

#include "views/analysis/AnalysisFixture.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FPrevMed.h"

#include <QLabel>
#include <QLayout>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A date of the forecast, that many days after the calculation date.
QString dateAfter(std::int32_t days) {
    return shortDate(toDateValue(calculationDay().addDays(days)));
}

} // namespace

void TestFPrevMed::knownSystem() {
    const FPrevMed window(systemAt({8116, 8117, 8118}));
    const Forecast forecast = systemForecast(SystemMean({8116, 8117, 8118}));
    QVERIFY(forecast.inversion && forecast.maximum && forecast.minimum);
    QCOMPARE(waits(window),
             (QStringList{QString::number(*forecast.inversion), QString::number(*forecast.maximum),
                          QString::number(*forecast.minimum)}));
    QCOMPARE(dates(window),
             (QStringList{dateAfter(*forecast.inversion), dateAfter(*forecast.maximum),
                          dateAfter(*forecast.minimum)}));
}

void TestFPrevMed::calculationDateCounts() {
    // Between day 8007 and day 8008 the mean changes its sign.
    const FPrevMed today(systemAt({8008}));
    QCOMPARE(boxText(today, u"Text4"_s), u"0"_s);
    QCOMPARE(boxText(today, u"Text1"_s), dateAfter(0));
    const FPrevMed tomorrow(systemAt({8007}));
    QCOMPARE(boxText(tomorrow, u"Text4"_s), u"1"_s);
    QCOMPARE(boxText(tomorrow, u"Text1"_s), dateAfter(1));
}

void TestFPrevMed::takesExactlyNine() {
    // Day 371 shows 9, day 372 shows 10, day 373 shows 9.
    const FPrevMed before(systemAt({369}));
    QCOMPARE(boxText(before, u"Text5"_s), u"2"_s);
    QCOMPARE(boxText(before, u"Text2"_s), dateAfter(2));
    QCOMPARE(boxText(FPrevMed(systemAt({371})), u"Text5"_s), u"0"_s);
    QCOMPARE(boxText(FPrevMed(systemAt({372})), u"Text5"_s), u"1"_s);
    // The same below zero.
    QCOMPARE(boxText(FPrevMed(systemAt({-373})), u"Text6"_s), u"0"_s);
    QCOMPARE(boxText(FPrevMed(systemAt({-372})), u"Text6"_s), u"1"_s);
    QCOMPARE(boxText(FPrevMed(systemAt({-372})), u"Text3"_s), dateAfter(1));
}

void TestFPrevMed::sayNever() {
    const FPrevMed window(systemAt({0, 14}));
    QVERIFY(boxText(window, u"Text4"_s) != u"Mai"_s);
    QCOMPARE(waits(window).mid(1), (QStringList{u"Mai"_s, u"Mai"_s}));
    QCOMPARE(dates(window).mid(1), (QStringList{u"Mai"_s, u"Mai"_s}));
}

void TestFPrevMed::datesAreShort() {
    if (!datesAreItalian()) {
        QSKIP("texts of the Italian locale");
    }
    QCOMPARE(boxText(FPrevMed(systemAt({8007})), u"Text1"_s), u"16/03/2004"_s);
    QCOMPARE(boxText(FPrevMed(systemAt({371})), u"Text2"_s), u"15/03/2004"_s);
}

void TestFPrevMed::membersAreCountedToTheCalculationDate() {
    // Neither the record's person nor a member beyond the count has a part in it.
    Program program = systemAt({371, 14});
    program.state.systemCount = 1;
    program.biorhythm.daysAtGraphStart = -5;
    program.biorhythm.birthDate = 0;
    QCOMPARE(boxText(FPrevMed(program), u"Text5"_s), u"0"_s);
}

void TestFPrevMed::largestSystem() {
    const std::vector<std::int32_t> dayCounts(mostMembers, 369);
    QCOMPARE(waits(FPrevMed(systemAt(dayCounts))), waits(FPrevMed(systemAt({369}))));
}

void TestFPrevMed::staysAsItWasMade() {
    Program program = systemAt({369});
    const FPrevMed first(program);
    program.state.systemMembers[0].birthDate -= 3;
    program.biorhythm.calculationDate += 100;
    const FPrevMed second(program);
    QCOMPARE(boxText(first, u"Text5"_s), u"2"_s);
    QCOMPARE(boxText(first, u"Text2"_s), dateAfter(2));
    QVERIFY(waits(second) != waits(first));
}

void TestFPrevMed::cursorIsRestored() {
    const FPrevMed window(systemAt({8116, 7}));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestFPrevMed::textsFit() {
    FPrevMed window(systemAt({0, 14}));
    window.resize(window.minimumSizeHint());
    window.layout()->activate();
    for (const QString& name : {u"Text1"_s, u"Text2"_s, u"Text3"_s}) {
        const auto* box = window.findChild<QLineEdit*>(name);
        QVERIFY(roomIn(*box) > box->fontMetrics().horizontalAdvance(dateAfter(21'999)));
    }
    for (const QString& name : {u"Text4"_s, u"Text5"_s, u"Text6"_s}) {
        const auto* box = window.findChild<QLineEdit*>(name);
        QVERIFY(roomIn(*box) > box->fontMetrics().horizontalAdvance(u"21999"_s));
    }
    // No wider than short dates need.
    QVERIFY(window.sizeHint().width() < FPrev(personAt(8116)).sizeHint().width());
}

void TestFPrevMed::titleAndObjectName() {
    const FPrevMed window(systemAt({1}));
    QCOMPARE(window.windowTitle(), u"Previsione di sistema"_s);
    QCOMPARE(window.objectName(), u"FPrevMed"_s);
}

void TestFPrevMed::labels() {
    const FPrevMed window(systemAt({1}));
    const auto label = [&](const QString& name) { return window.findChild<QLabel*>(name); };
    QCOMPARE(label(u"LabelInversion"_s)->text(), u"Prossima inversione (Media = 0):"_s);
    QCOMPARE(label(u"LabelMaximum"_s)->text(), u"Prossimo massimo (Media = 9):"_s);
    QCOMPARE(label(u"LabelMinimum"_s)->text(), u"Prossimo minimo (Media = -9):"_s);
    QCOMPARE(label(u"LabelDate"_s)->text(), u"In data:"_s);
    QCOMPARE(label(u"LabelDays"_s)->text(), u"Tra giorni:"_s);
    QCOMPARE(label(u"LabelInversion"_s)->buddy()->objectName(), u"Text1"_s);
    QCOMPARE(label(u"LabelMaximum"_s)->buddy()->objectName(), u"Text2"_s);
    QCOMPARE(label(u"LabelMinimum"_s)->buddy()->objectName(), u"Text3"_s);
}

void TestFPrevMed::boxesAreReadOnlyAndCopyable() {
    const FPrevMed window(systemAt({0, 14}));
    verifyReadOnlyAndCopyable(
        window, {u"Text1"_s, u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Text6"_s});
}

void TestFPrevMed::closes() {
    verifyCloses(new FPrevMed(systemAt({1})));
}

void TestFPrevMed::helpOpensItsTopic() {
    verifyHelp(FPrevMed(systemAt({1})), u"2prev.html"_s);
}

void TestFPrevMed::tabOrder() {
    QCOMPARE(test::tabOrder(FPrevMed(systemAt({1})), u"Text1"_s),
             (QStringList{u"Text1"_s, u"Text4"_s, u"Text2"_s, u"Text5"_s, u"Text3"_s, u"Text6"_s,
                          u"Command1"_s, u"Command2"_s}));
}

} // namespace quor::test
