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
    void textsFitTheirLine_data();
    void textsFitTheirLine();
};

} // namespace quor::test
