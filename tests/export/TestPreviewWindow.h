#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestPreviewWindow : public Test {
    Q_OBJECT

  private slots:
    void startsOnTheFirstPage();
    void turnsPages();
    void turnsPagesWithTheKeyboard();
    void zooms();
    void zoomsWithTheKeyboardAndTheWheel();
    void fitsThePaper();
    void showsThePaper();
    void takesOtherPages();
    void prints();
    void printsWhatWasShown();
    void closes();
    void controlsAreNamed();
    void withoutPagesThereIsNothingToDo();
};

} // namespace quor::test
