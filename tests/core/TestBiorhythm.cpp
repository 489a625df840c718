#include "core/TestBiorhythm.h"

#include "core/Biorhythm.h"
#include "core/Clock.h"

#include "support/Hermetic.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestBiorhythm::startUpDefaults() {
    const FixedClock clock(QDate(2004, 3, 15));
    Program program;
    program.biorhythm.name = u"somebody"_s;
    program.state.modified = true;
    resetToStartUp(program);

    const Biorhythm& biorhythm = program.biorhythm;
    QVERIFY(!biorhythm.isPresent());
    QCOMPARE(biorhythm.birthDate, 0.0);
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(2004, 3, 15));
    QCOMPARE(biorhythm.dayIndexPosition, std::uint8_t{2});
    QCOMPARE(biorhythm.graphDaysAdjust, std::int16_t{0});
    QCOMPARE(biorhythm.curveColours,
             (std::array<Colour, 5>{0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF, 0}));
    QCOMPARE(biorhythm.weeklyColours, (std::array<Colour, 4>{0x0000FF, 0x00FF00, 0x00FFFF, 0}));
    QVERIFY(biorhythm.openGraph);
    QVERIFY(!biorhythm.openWeekly && !biorhythm.openStatistics && !biorhythm.openForecasts);
    QCOMPARE(biorhythm.showFlags(), (ShowFlags{true, true, true, true, true}));

    const AppState& state = program.state;
    QVERIFY(state.filePath.isEmpty() && state.systemFilePath.isEmpty());
    QVERIFY(!state.systemOpen && !state.modified && !state.guidedStepDone);
    QCOMPARE(state.systemCount, std::int16_t{0});
    QCOMPARE(state.guidedProcedureActive, std::uint8_t{0});
}

void TestBiorhythm::resetTouchesOnlyDisplayOptions() {
    Biorhythm biorhythm;
    biorhythm.name = u"Maria"_s;
    biorhythm.birthDate = 29945;
    biorhythm.calculationDate = 38061;
    biorhythm.openForecasts = true;
    biorhythm.showMean = false;
    biorhythm.graphDaysAdjust = 100;
    biorhythm.dayIndexPosition = 0;
    biorhythm.curveColours = {1, 2, 3, 4, 5};
    biorhythm.weeklyColours = {1, 2, 3, 4};
    resetDisplayOptions(biorhythm);

    QCOMPARE(biorhythm.curveColours,
             (std::array<Colour, 5>{0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF, 5}));
    QCOMPARE(biorhythm.weeklyColours, (std::array<Colour, 4>{0x0000FF, 0x00FF00, 0x00FFFF, 4}));
    QCOMPARE(biorhythm.graphDaysAdjust, std::int16_t{0});
    QCOMPARE(biorhythm.dayIndexPosition, std::uint8_t{2});
    QCOMPARE(biorhythm.name, u"Maria"_s);
    QCOMPARE(biorhythm.birthDate, 29945.0);
    QCOMPARE(biorhythm.calculationDate, 38061.0);
    QVERIFY(biorhythm.openForecasts && !biorhythm.showMean);
}

void TestBiorhythm::namesAreFoundExactly() {
    AppState state;
    state.systemMembers = {{u"Anna"_s, 1}, {u"anna"_s, 2}, {u"Bruno"_s, 3}, {u"Anna"_s, 4}};
    state.systemCount = 3;
    QCOMPARE(findSystemMember(state, u"Anna"_s), std::int16_t{0});
    QCOMPARE(findSystemMember(state, u"anna"_s), std::int16_t{1});
    QCOMPARE(findSystemMember(state, u"ANNA"_s), std::int16_t{-1});
    QCOMPARE(findSystemMember(state, u"Bruno "_s), std::int16_t{-1});
    state.systemCount = 1; // what comes after the count does not belong to the system
    QCOMPARE(findSystemMember(state, u"Bruno"_s), std::int16_t{-1});
}

void TestBiorhythm::anEmptySystemFindsNothing() {
    AppState state;
    QCOMPARE(findSystemMember(state, u"Anna"_s), std::int16_t{-1});
    state.systemMembers.resize(1);
    QCOMPARE(findSystemMember(state, {}), std::int16_t{-1});
    state.systemCount = -3;
    QCOMPARE(findSystemMember(state, {}), std::int16_t{-1});
}

void TestBiorhythm::membersAreThoseThatCount() {
    AppState state;
    QVERIFY(state.members().empty());
    state.systemMembers = {{u"Anna"_s, 1}, {u"Bruno"_s, 2}};
    QVERIFY(state.members().empty());
    state.systemCount = 1;
    QCOMPARE(state.members().size(), std::size_t{1});
    QCOMPARE(state.members().front().name, u"Anna"_s);
    state.systemCount = 3; // more than there are
    QCOMPARE(state.members().size(), std::size_t{2});
    state.systemCount = -1;
    QVERIFY(state.members().empty());
}

void TestBiorhythm::dayCountsFollowTheDates() {
    Biorhythm biorhythm;
    biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    QCOMPARE(dayCountAtGraphStart(biorhythm), 8116 - 20);
    biorhythm.calculationDate = toDateValue(QDate(1981, 12, 25));
    QCOMPARE(dayCountAtGraphStart(biorhythm), -20);
    QCOMPARE(dayCountAtGraphStart(biorhythm.birthDate - 3, biorhythm.calculationDate), -17);
    biorhythm.daysAtGraphStart = 100;
    QCOMPARE(dayCountOnCalculationDate(biorhythm), 120);
}

void TestBiorhythm::theSmallestSpanIsOneDay() {
    QCOMPARE(daysAround(0), 20);
    QCOMPARE(daysAround(-19), 1);
    QCOMPARE(daysAround(-20), 1);
    QCOMPARE(daysAround(-32768), 1);
    QCOMPARE(daysAround(32767), 32787);
}

void TestBiorhythm::theClockCanBeSet() {
    const FixedClock outer(QDate(2000, 1, 1));
    {
        const FixedClock inner(QDate(2001, 1, 1));
        QCOMPARE(toQDate(today()), QDate(2001, 1, 1));
    }
    QCOMPARE(toQDate(today()), QDate(2000, 1, 1));
    QCOMPARE(today(), std::floor(today()));
}

} // namespace quor::test
