#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestBiorhythm : public Test {
    Q_OBJECT

  private slots:
    void startUpDefaults();
    void resetTouchesOnlyDisplayOptions();
    void namesAreFoundExactly();
    void anEmptySystemFindsNothing();
    void membersAreThoseThatCount();
    void dayCountsFollowTheDates();
    void theSmallestSpanIsOneDay();
    void theClockCanBeSet();
};

} // namespace quor::test
