#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFStat : public Test {
    Q_OBJECT

  private slots:
    void knownPerson();
    void zeroCrossing();
    void boxesAreReadOnlyAndCopyable();
    void barsWearTheCurveColours();
    void staysAsItWasMade();
    void titleAndObjectName();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
    void labelsBelongToTheirBoxes();
    void fitsItsTexts();
};

} // namespace quor::test
