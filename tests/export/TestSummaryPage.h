#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSummaryPage : public Test {
    Q_OBJECT

  private slots:
    void colours_data();
    void colours();
    void theWeekOfASunday();
    void damagedSpansShowADay();
};

} // namespace quor::test
