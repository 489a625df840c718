#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestBiorhythmViews : public Test {
    Q_OBJECT

  private slots:
    void viewsNeedABiorhythm();
    void chosenViewsOpenInOrder();
    void titlesShowTheNameAsTyped();
    void viewsFromTheMenu();
    void movingTheDate();
    void movingTheDateToNonsense();
    void movingToTheSameDate();
    void optionsReachTheirViews();
    void optionsWithoutViews();
    void optionsOfAnOpenSystem();
    void exportWithASystemOpen();
    void closingClosesEveryView();
    void aboutAndHelp();
};

} // namespace quor::test
