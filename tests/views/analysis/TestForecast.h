#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestForecast : public Test {
    Q_OBJECT

  private slots:
    void inversionStopsWhereTheSignChanges();
    void inversionStopsAtZero();
    void inversionStopsAfterZero();
    void inversionIsNothingBeyondTheRange();
    void extremesAreTheRoundedValues();
    void rangeIncludesBothEnds();
    void onePeriodHas63OfEach();
    void waitsAreBoundedByOnePeriod();
    void waitsAreBoundedOnBothSidesOfTheBirth();
    void meanIsOddAndPeriodic();
    void startsOnTheDayAfter();
    void knownPerson();
    void rowsHoldDatesAndDays();
    void rowsKeepTheDayOfADateWithATime();
    void rowsBeyondTheLastYear();
    void rowsSayNever();
    void systemStartsOnTheCalculationDate();
    void systemExtremesAreExactlyNine();
    void systemHorizonIsTheDay22000();
    void systemInversionMayComeBeyondTheHorizon();
    void systemAsksForEachDayOnce();
    void systemIsWhatTheFormulasSay();
    void systemOfOneMember();
    void evenSystemHasNoExtremes();
    void systemWithoutMembers();
    void largestSystem();
};

} // namespace quor::test
