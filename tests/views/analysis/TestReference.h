#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestReference : public Test {
    Q_OBJECT

  private slots:
    void valuesAgree();
    void trendsAgree();
    void forecastsAgree();
};

} // namespace quor::test
