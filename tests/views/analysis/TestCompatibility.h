#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCompatibility : public Test {
    Q_OBJECT

  private slots:
    void sameBirth();
    void fourteenDaysApart();
    void halfAPeriodApart();
    void risesAgainTowardsAWholePeriod();
    void orderDoesNotMatter();
    void halfDaysGoToTheEvenOne();
    void longestDifference();
    void onlyCommonBitsAreCompared();
    void texts();
    void textsFollowTheLocale();
    void layouts_data();
    void layouts();
    void plotMapsDaysAndValues();
    void panelsTooSmall();
    void secondPersonIsFiftyLess();
    void emptyPanelIsPlain();
    void panelInItsOrder();
    void eachPersonHasOwnPhases();
    void referencePairsAgree();
    void referencePanelsAgree();
    void aPanelInWords();
};

} // namespace quor::test
