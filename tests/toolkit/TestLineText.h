#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLineText : public Test {
    Q_OBJECT

  private slots:
    void ordinaryTextIsShownAsItIs();
    void longTextIsCut();
    void noPairIsCut();
};

} // namespace quor::test
