#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCycles : public Test {
    Q_OBJECT

  private slots:
    void theCircleIsTheWrittenDouble();
    void angleStepsAreTheWrittenDoubles();
    void valuesEqualTheFormulaBitForBit();
    void originAndFullPeriodsAreZero();
    void negativeCountsKeepTheirSign();
    void meanIsSummedInItsOrder();
    void publishedValuesHold_data();
    void publishedValuesHold();
    void wideCountsAreReducedFirst();
    void countsBeyond32BitsAreAnError();
};

} // namespace quor::test
