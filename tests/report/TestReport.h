#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestReport : public Test {
    Q_OBJECT

  private slots:
    void numbersAreTheWindows();
    void systemNumbersAreTheWindows();
    void seriesAreTheModels();
    void statusAndOneLine();
    void calendarsTakeTheirModule();
    void outputFiles();
};

} // namespace quor::test
