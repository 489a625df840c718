#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestGraphPlot : public Test {
    Q_OBJECT

  private slots:
    void layouts_data();
    void layouts();
    void valuesMapToPixels();
    void hitTestExcludesBothEnds();
    void ahalfIntervalGoesToTheEvenDay();
    void moreDaysThanPixels();
};

} // namespace quor::test
