#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFPrevMed : public Test {
    Q_OBJECT

  private slots:
    void knownSystem();
    void calculationDateCounts();
    void takesExactlyNine();
    void sayNever();
    void datesAreShort();
    void membersAreCountedToTheCalculationDate();
    void largestSystem();
    void staysAsItWasMade();
    void cursorIsRestored();
    void textsFit();
    void titleAndObjectName();
    void labels();
    void boxesAreReadOnlyAndCopyable();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
};

} // namespace quor::test
