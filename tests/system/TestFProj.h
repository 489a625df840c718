#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFProj : public Test {
    Q_OBJECT

  private slots:
    void opensTheSystem();
    void captionsAndTips();
    void accessKeysAndTabOrder();
    void tabsChooseTheFrames();
    void tabsDoNotMoveTheWindow();
    void startsWithoutMembers();
    void fillingTheTree();
    void fillingAnEmptyTree();
    void addingMembers();
    void aNameOnlyOnce();
    void noMoreThanTheLargestSystem();

    void viewsOpenByAClick_data();
    void viewsOpenByAClick();
    void aViewShowsItsMember();
    void eachClickOpensAnotherWindow();
    void aMemberOpensNothing();
    void oneWindowHoweverItIsOpened();
    void theEnterKeyOpens();
    void theButtonOpens();

    void invalidSelections_data();
    void invalidSelections();
    void removingTheFirstOfThree();
    void removingIsRefused();
    void removingTheLastOne();
    void inserting();
    void whatATourLeavesUsable_data();
    void whatATourLeavesUsable();
    void anExportDuringATour();
    void systemViews();
    void compatibility();
    void systemViewsNeedMembers();
    void optionsAndHelp();
    void movingTheDate_data();
    void movingTheDate();
    void invalidDates_data();
    void invalidDates();
    void exportingAMember();
    void savingAMember();
    void exportingTheSystem();
    void anEmptySystemIsNotExported();
    void printingAMember();
    void aLockedWindowCannotBeClosed();

    void closingAsksOnce_data();
    void closingAsksOnce();
    void closingIsRefused();
    void closingSaves();
    void closingWithoutSaving();
    void closingEmptiesTheTreeFirst();
    void compatibilityClosesWithTheSystem();
    void aFailedSaveKeepsTheSystem();
    void longNamesHaveATip();
};

} // namespace quor::test
