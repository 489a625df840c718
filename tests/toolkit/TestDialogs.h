#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDialogs : public Test {
    Q_OBJECT

  private slots:
    void ordinaryTextIsShownAsItIs();
    void enterLosesNothing();
    void boxesStayOnTheScreen_data();
    void boxesStayOnTheScreen();
};

} // namespace quor::test
