#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemMean : public Test {
    Q_OBJECT

  private slots:
    void slicesHoldTheFunctionsValues_data();
    void slicesHoldTheFunctionsValues();
    void equalsTheDirectSumsToTheLastBit_data();
    void equalsTheDirectSumsToTheLastBit();
    void birthsOnEveryDayOfASpan();
    void longSpansRepeatToTheLastBit_data();
    void longSpansRepeatToTheLastBit();
    void dayCountsFollowTheMembersOrder();
    void lastBirthIsTheLatestToCome();
    void withoutMembersIsZero();
};

} // namespace quor::test
