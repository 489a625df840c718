#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCompatibilityMatrix : public Test {
    Q_OBJECT

  private slots:
    void everyPairIsTheWindows();
    void ordered();
    void farBirthsComeLast();
    void tooManyAreNotCompared();
    void nobodyAndOne();
    void aVisitorMayStop();
};

} // namespace quor::test
