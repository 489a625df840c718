#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemFile : public Test {
    Q_OBJECT

  private slots:
    void oneMemberIsWrittenToTheLetter();
    void linesOfAFile_data();
    void linesOfAFile();
    void onlyTheCountedMembersAreSaved();
    void whatIsWrittenIsReadBack();
    void namesWithAccentsCommasAndQuotes();
    void dateAndOptionsAreReplacedAndNoOtherField();
    void aCountTooBigTakesTheTailForMembers();
    void aCountTooSmallTakesMembersForTheTail();
    void noMembersLeaveTheOldListWhereItIs();
    void withoutACountNothingIsTaken_data();
    void withoutACountNothingIsTaken();
    void truncatedAfterEachLine_data();
    void truncatedAfterEachLine();
    void damagedLinesKeepTheirFields();
    void filesThatCannotBeOpened();
    void binaryLinesAfterACount();
    void takenOver();
    void hugeFilesAreReadInBoundedTime();
    void theLargestSystem();
    void aFailedSaveKeepsTheOldFile();
    void savingKeepsTheFilePath();
    void samplesOpen();
};

} // namespace quor::test
