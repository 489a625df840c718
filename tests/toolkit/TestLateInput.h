#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLateInput : public Test {
    Q_OBJECT

  private slots:
    void accessKeyClicks();
    void waitsForBoxAbove();
    void boxesAboveAreClicked();
    void nothingInClosedWindow();
    void waitsForDialogOfItsWindow();
    void windowOfBoxDoesNotWait();
    void windowBesideDoesNotWait();
    void closedWindowTakesNothing_data();
    void closedWindowTakesNothing();
    void closedListHandsKeysOn();
};

} // namespace quor::test
