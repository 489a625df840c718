#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWeekState : public Test {
    Q_OBJECT

  private slots:
    void rowsInWords();
    void weekOfADate_data();
    void weekOfADate();
    void hoursDoNotMatter();
    void stateAtItsLimits_data();
    void stateAtItsLimits();
    void valuesOfTheWeekOfTheBirth();
    void valuesBeforeTheBirth();
    void labels();
};

} // namespace quor::test
