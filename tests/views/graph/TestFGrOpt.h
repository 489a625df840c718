#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFGrOpt : public Test {
    Q_OBJECT

  private slots:
    void showsWhatItIsGiven();
    void okStoresAndTells();
    void cancelAndCloseDoNeither();
    void defaultsThenCancel();
    void defaultsThenOk();
    void tooSmallBecomesOne_data();
    void tooSmallBecomesOne();
    void oneIsAccepted();
    void ties_data();
    void ties();
    void overflowKeepsTheDialog_data();
    void overflowKeepsTheDialog();
    void withASystemOpen();
    void swatches();
    void anUnknownPosition();
    void helpButton();
};

} // namespace quor::test
