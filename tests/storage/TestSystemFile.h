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
    void noMembersLeaveTheOldListWhereItIs_data();
    void noMembersLeaveTheOldListWhereItIs();
    void aDamagedCountKeepsItsValue_data();
    void aDamagedCountKeepsItsValue();
    void truncatedAfterEachLine_data();
    void truncatedAfterEachLine();
    void damagedLinesKeepTheirFields();
    void filesThatCannotBeOpened();
    void binaryAndEmptyFiles();
    void hugeFilesAreReadInBoundedTime();
    void theLargestSystem();
    void aFailedSaveKeepsTheOldFile();
    void savingKeepsTheFilePath();
    void samplesOpen();
};

} // namespace quor::test
