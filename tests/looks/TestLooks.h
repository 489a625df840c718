#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// Every window of the program on light and dark desktops and with fonts from small to large:
/// nothing cut, nothing that cannot be read.
class TestLooks : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void cleanupTestCase();
    void hasNoFaults_data();
    void hasNoFaults();
    void boxesHaveNoFaults_data();
    void boxesHaveNoFaults();
};

} // namespace quor::test
