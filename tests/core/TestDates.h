#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDates : public Test {
    Q_OBJECT

  private slots:
    void dayCountsIgnoreTheTimeOfDay();
    void dayCountsMayBeNegative();
    void shortDates_data();
    void shortDates();
    void longDatesAreTheLocales();
};

} // namespace quor::test
