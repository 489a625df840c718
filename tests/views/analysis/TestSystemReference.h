#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemReference : public Test {
    Q_OBJECT

  private slots:
    void statesAgreeToTheLastBit();
    void forecastsAgree();
};

} // namespace quor::test
