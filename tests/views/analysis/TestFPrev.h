#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFPrev : public Test {
    Q_OBJECT

  private slots:
    void knownPerson();
    void signChangeBeforeTomorrow();
    void zeroTodayEndsTheSearchTomorrow();
    void maximumTodayIsNotReported();
    void maximumTomorrowIsOne();
    void beforeTheBirth();
    void boxesAreReadOnlyAndCopyable();
    void longestDateFits();
    void staysAsItWasMade();
    void titleAndObjectName();
    void labels();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
};

} // namespace quor::test
