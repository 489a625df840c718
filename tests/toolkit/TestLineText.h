#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLineText : public Test {
    Q_OBJECT

  private slots:
    void ordinaryTextIsShownAsItIs();
    void longTextIsCut();
    void noPairIsCut();
    void longTextKeepsItsEnd();
};

} // namespace quor::test
