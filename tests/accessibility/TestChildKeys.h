#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// The windows inside the frame without a mouse.
class TestChildKeys : public Test {
    Q_OBJECT

  private slots:
    void switchesWindows_data();
    void switchesWindows();
    void closesTheActiveWindow_data();
    void closesTheActiveWindow();
    void opensTheWindowsMenu();
    void nothingToActOn();
    void tabStaysInTheWindow();
    void beginsWithTheSameControl_data();
    void beginsWithTheSameControl();
    void theGraphsMenu_data();
    void theGraphsMenu();
};

} // namespace quor::test
