#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFileDrop : public Test {
    Q_OBJECT

  private slots:
    void aFileIsOpened();
    void wherever();
    void theUsualQuestions();
    void aSystem();
    void whatIsRefused_data();
    void whatIsRefused();
    void theFileStaysWhereItIs();
    void whileOpeningIsLocked();
    void whileADialogIsOpen();
    void lockedBetweenDropAndOpening();
};

} // namespace quor::test
