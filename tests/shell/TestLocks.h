#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLocks : public Test {
    Q_OBJECT

  private slots:
    void everyWayIn_data();
    void everyWayIn();
    void theWindowsCloseWithTheSystem();
};

} // namespace quor::test
