#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWeekPlot : public Test {
    Q_OBJECT

  private slots:
    void geometry_data();
    void geometry();
    void mapping();
    void labelStandsInTheMiddle_data();
    void labelStandsInTheMiddle();
    void labelStandsBelowTheNames_data();
    void labelStandsBelowTheNames();
    void textsFitTheirLines_data();
    void textsFitTheirLines();
};

} // namespace quor::test
