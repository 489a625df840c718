#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// The search for faults finds those that are there, so that finding none means something.
class TestWindowFaults : public Test {
    Q_OBJECT

  private slots:
    void aGoodWindowHasNone();
    void missingNames();
    void picturesNeedNames();
    void markup();
    void listsAreNotNamedByTheirChoice();
    void sharedAccessKeys();
    void labelsWithoutAControl();
    void menus();
    void unreachable();
    void trapped();
    void againstTheOrderOfReading();
    void columnsAreInOrder();
    void firstFocus();
    void missingTitle();
};

} // namespace quor::test
