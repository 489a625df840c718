#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestRunLock : public Test {
    Q_OBJECT

  private slots:
    void oneHolderAtATime();
    void waitingForAnother();
    void aRemovedFileIsMadeAnew();
    void onlyTheUserMayReadIt();
    void whereNoFileCanBeMade();
    void startedProgramsDoNotHoldIt();
    void itGoesWithItsProcess();
};

} // namespace quor::test
