#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestToolTipText : public Test {
    Q_OBJECT

  private slots:
    void saysTheTextAsItIs_data();
    void saysTheTextAsItIs();
    void nothingForNothing();
    void notHigherThanTheScreen();
};

} // namespace quor::test
