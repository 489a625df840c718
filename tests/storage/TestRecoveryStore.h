#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestRecoveryStore : public Test {
    Q_OBJECT

  private slots:
    void whatIsUnsavedWork();
    void whatIsTheSameWork_data();
    void whatIsTheSameWork();
    void pathsAreMadeAbsolute();
    void aBiorhythmComesBackAsItWas();
    void aSystemComesBackAsItWas();
    void theFileIsAnOrdinaryOneAsWell();
    void pathsOfEveryKind_data();
    void pathsOfEveryKind();
    void onlyTheUserMayRead();
    void theSameWorkIsWrittenOnce();
    void laterWorkTakesThePlace();
    void anotherKindTakesThePlace();
    void clearingLeavesNothing();
    void aLivingRunIsLeftAlone();
    void theLatestFirst();
    void foundWorkIsNobodyElses();
    void adoptedWorkIsTheRunsOwn();
    void adoptingForgetsTheRunsOwn();
    void removedWorkIsGone();
    void workThatStandsInItsFile();
    void aFileWrittenSince();
    void cutFilesAreSetAside();
    void damagedFilesAreSetAside_data();
    void damagedFilesAreSetAside();
    void whatIsNoFileIsLeftAlone();
    void remainsAreCleared();
    void bothKindsUnderOneName();
    void whatHasTheFoldersNameStaysAsItIs();
    void aFolderThatCannotBeMade();
    void aFullDisk();
    void killedAtAnyMoment();
    void theLargestSystem();
};

} // namespace quor::test
