#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestGraphSeries : public Test {
    Q_OBJECT

  private slots:
    void knownSystems();
    void aSystemsValuesToTheLastBit_data();
    void aSystemsValuesToTheLastBit();
    void barsOfASystemVaryContinuously();
    void twoMembersHalfAPeriodApart();
    void aSystemIsAsItWasWhenTheGraphWasMade();
    void thePopupSaysWhatIsDrawn_data();
    void thePopupSaysWhatIsDrawn();
    void aPersonsFirstDayStays();
};

} // namespace quor::test
