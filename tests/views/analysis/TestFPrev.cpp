#include "views/analysis/TestFPrev.h"

#include "views/analysis/AnalysisFixture.h"
#include "views/analysis/FPrev.h"

#include <QLabel>
#include <QLayout>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestFPrev::knownPerson() {
    Program program = personAt(0);
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    const FPrev window(program);
    QCOMPARE(waits(window), (QStringList{u"4"_s, u"9"_s, u"388"_s}));
    const DateValue start = program.biorhythm.calculationDate;
    QCOMPARE(dates(window),
             (QStringList{longDate(start + 4), longDate(start + 9), longDate(start + 388)}));
    if (datesAreItalian()) {
        QCOMPARE(dates(window),
                 (QStringList{u"venerdì 19 marzo 2004"_s, u"mercoledì 24 marzo 2004"_s,
                              u"giovedì 7 aprile 2005"_s}));
    }
}

void TestFPrev::signChangeBeforeTomorrow() {
    // Between day 8007 and day 8008 the mean changes its sign.
    const FPrev window(personAt(8007));
    QCOMPARE(boxText(window, u"Text4"_s), u"1"_s);
    QCOMPARE(boxText(window, u"Text1"_s), longDate(toDateValue(QDate(2004, 3, 16))));
}

void TestFPrev::zeroTodayEndsTheSearchTomorrow() {
    QCOMPARE(boxText(FPrev(personAt(0)), u"Text4"_s), u"1"_s);
    // Exactly zero tomorrow.
    QCOMPARE(boxText(FPrev(personAt(-1)), u"Text4"_s), u"1"_s);
    QCOMPARE(boxText(FPrev(personAt(21251)), u"Text4"_s), u"1"_s);
}

void TestFPrev::maximumTodayIsNotReported() {
    QCOMPARE(boxText(FPrev(personAt(372)), u"Text5"_s), u"922"_s);
    QCOMPARE(boxText(FPrev(personAt(-372)), u"Text6"_s), u"365"_s); // day -7
}

void TestFPrev::maximumTomorrowIsOne() {
    QCOMPARE(boxText(FPrev(personAt(371)), u"Text5"_s), u"1"_s);
    QCOMPARE(boxText(FPrev(personAt(371)), u"Text2"_s), longDate(toDateValue(QDate(2004, 3, 16))));
    QCOMPARE(boxText(FPrev(personAt(6)), u"Text5"_s), u"1"_s); // today as well as tomorrow
}

void TestFPrev::beforeTheBirth() {
    // Nine days before the birth comes the minimum of day -7, and on day 6 the maximum.
    const FPrev window(personAt(-9));
    QCOMPARE(waits(window).mid(1), (QStringList{u"15"_s, u"2"_s}));
}

void TestFPrev::boxesAreReadOnlyAndCopyable() {
    const FPrev window(personAt(8116));
    verifyReadOnlyAndCopyable(
        window, {u"Text1"_s, u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Text6"_s});
}

void TestFPrev::longestDateFits() {
    FPrev window(personAt(8116));
    window.resize(window.minimumSizeHint());
    window.layout()->activate();
    for (const QString& name : {u"Text1"_s, u"Text2"_s, u"Text3"_s}) {
        const auto* box = window.findChild<QLineEdit*>(name);
        const int room = roomIn(*box);
        QVERIFY(room > box->fontMetrics().horizontalAdvance(u"mercoledì 30 settembre 2026"_s));
        QVERIFY(room > box->fontMetrics().horizontalAdvance(box->text()));
    }
}

void TestFPrev::staysAsItWasMade() {
    Program program = personAt(8116);
    const FPrev first(program);
    program = personAt(371);
    program.biorhythm.calculationDate += 100;
    const FPrev second(program);
    QCOMPARE(waits(first), (QStringList{u"4"_s, u"9"_s, u"388"_s}));
    QCOMPARE(boxText(second, u"Text5"_s), u"1"_s);
    QCOMPARE(boxText(first, u"Text1"_s), longDate(toDateValue(QDate(2004, 3, 19))));
}

void TestFPrev::titleAndObjectName() {
    const FPrev window(personAt(1));
    QCOMPARE(window.windowTitle(), u"Previsioni"_s);
    QCOMPARE(window.objectName(), u"FPrev"_s);
}

void TestFPrev::labels() {
    const FPrev window(personAt(1));
    const auto label = [&](const QString& name) { return window.findChild<QLabel*>(name)->text(); };
    QCOMPARE(label(u"LabelInversion"_s), u"Prossima inversione (Media = 0):"_s);
    QCOMPARE(label(u"LabelMaximum"_s), u"Prossimo massimo (Media = 10):"_s);
    QCOMPARE(label(u"LabelMinimum"_s), u"Prossimo minimo (Media = -10):"_s);
    QCOMPARE(label(u"LabelDate"_s), u"In data:"_s);
    QCOMPARE(label(u"LabelDays"_s), u"Tra giorni:"_s);
    for (int i = 1; i <= 6; ++i) {
        QVERIFY(!window.findChild<QLineEdit*>(u"Text%1"_s.arg(i))->accessibleName().isEmpty());
    }
    for (const QLabel* row : {window.findChild<QLabel*>(u"LabelInversion"_s),
                              window.findChild<QLabel*>(u"LabelMaximum"_s),
                              window.findChild<QLabel*>(u"LabelMinimum"_s)}) {
        QVERIFY(row->buddy());
    }
}

void TestFPrev::closes() {
    verifyCloses(new FPrev(personAt(1)));
}

void TestFPrev::helpOpensItsTopic() {
    verifyHelp(FPrev(personAt(1)), u"2prev.html"_s);
}

void TestFPrev::tabOrder() {
    QCOMPARE(test::tabOrder(FPrev(personAt(1)), u"Text1"_s),
             (QStringList{u"Text1"_s, u"Text4"_s, u"Text2"_s, u"Text5"_s, u"Text3"_s, u"Text6"_s,
                          u"Command1"_s, u"Command2"_s}));
}

} // namespace quor::test
