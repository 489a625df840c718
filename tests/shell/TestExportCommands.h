#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportCommands : public Test {
    Q_OBJECT

  private slots:
    void exportWindowExistsOnce();
    void printAndPreview();
    void closingTheBiorhythmClosesThem();
    void exportRunDisablesTheFrame();
    void closingTheOtherWindowDuringARun();
    void endingInTheMiddleOfARun();
};

} // namespace quor::test
