#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWindowTitle : public Test {
    Q_OBJECT

  private slots:
    void everyLetterIsShown();
    void longTitlesAreCut();
};

} // namespace quor::test
