#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCommandStates : public Test {
    Q_OBJECT

  private slots:
    void atStart();
    void theLockLiesAboveTheStates();
    void changesUnderTheLockAreKept();
    void menusCanBeOpened();
};

} // namespace quor::test
