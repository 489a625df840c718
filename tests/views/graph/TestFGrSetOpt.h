#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFGrSetOpt : public Test {
    Q_OBJECT

  private slots:
    void controls();
    void showsWhatItIsGiven();
    void okStoresAndTells();
    void okLeavesModifiedAsItIs();
    void okWithASystemOpenOnlyTells();
    void cancelDoesNothing();
    void closeBoxDoesNothing();
    void escapeDoesNothing();
    void chosenColourIsKept_data();
    void chosenColourIsKept();
    void cancelledColourDialogChangesNothing();
    void defaultShowsTheDefaults();
    void defaultThenCancelChangesNothing();
    void defaultThenOkStores();
    void asksForItsHelp();
};

} // namespace quor::test
