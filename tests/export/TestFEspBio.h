#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFEspBio : public Test {
    Q_OBJECT

  private slots:
    void opensWithNothingChosen();
    void pageNeedsAPicture();
    void refusesToStartWithoutAChoice_data();
    void refusesToStartWithoutAChoice();
    void exportsForTheInternet();
    void exportsForPrint();
    void exportsEveryMember();
    void countsErrorsAndGoesOn();
    void everyRunHasTheSameProgressWindow();
    void logKeepsTheResultInSight();
    void logCutsEndlessNames();
    void tipsOfTheLogAreWhole();
    void closingEndsTheRun();
    void aDisabledFrameStaysDisabled();
    void progressCannotBeClosedDuringARun();
};

} // namespace quor::test
