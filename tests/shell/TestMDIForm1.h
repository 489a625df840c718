#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestMDIForm1 : public Test {
    Q_OBJECT

  private slots:
    void startUp();
    void menusAndToolbar();
    void whatStartsDisabled();
    void applyingABiorhythm();
    void theTipOfAPanelSaysItsText();
    void noViewChosen();
    void openingAFile();
    void openingAFileOfToday();
    void commandLineText();
    void commandLineWithoutQuotes();
    void openOption();
    void savingAs();
    void savingToTheKnownFile();
    void aFailedSaveIsReported();
    void closingWithUnsavedChanges();
    void closingIsRefused();
    void aCancelledSaveKeepsTheBiorhythm();
    void openingClosesFirst();
    void newClosesFirst();
    void quitting();
    void theCloseBoxAsks();
    void afterClosing();
    void nothingBeneathABox();
    void popupOptionsReachTheActiveChild();
    void arranging();
    void oneGraphAtATime();
    void withASystemOpen();
};

} // namespace quor::test
