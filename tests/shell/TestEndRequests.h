#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestEndRequests : public Test {
    Q_OBJECT

  private slots:
    void theSessionEndsWithoutAQuestion();
    void signalsEndWithoutAQuestion_data();
    void signalsEndWithoutAQuestion();
    void ignoredSignalsStayIgnored();
};

} // namespace quor::test
