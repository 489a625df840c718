#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDayState : public Test {
    Q_OBJECT

  private slots:
    void valuesAreTheFormulas();
    void knownPerson();
    void shownValueRoundsTiesToEven();
    void zeroCrossingIsZeroAndRising();
    void extremesReachTen();
    void negativeDayCountsAreMirrored();
    void trendIsFallingOnlyWhenLower();
    void meanIsRoundedFromUnroundedValues();
    void systemIsTheSumOfItsMembersDivided();
    void systemOfOneIsItsMember();
    void halfAnEmotionalPeriodApartIsNoEmotion();
    void orderOfMembersIsRounding();
    void systemWithoutMembersIsZero();
    void inWords();
};

} // namespace quor::test
