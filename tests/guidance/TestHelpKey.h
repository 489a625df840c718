#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestHelpKey : public Test {
    Q_OBJECT

  private slots:
    void pressesTheHelpButtonOfTheActiveWindow();
    void childOfTheFrameComesFirst();
    void opensTheWholeHelpWithoutAButton();
    void opensThePageThatAWindowNames();
    void knowsTheHelpButtonOfTheAboutBox();
    void explainsTheKeysInTheHelpItself();
    void leavesOtherKeysAlone();
};

} // namespace quor::test
