#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestBiorhythmFile : public Test {
    Q_OBJECT

  private slots:
    void defaultsAreWrittenToTheLetter();
    void whatIsWrittenIsReadBack();
    void namesWithCommasAndQuotes();
    void truncatedAfterEachLine_data();
    void truncatedAfterEachLine();
    void damagedLinesKeepTheirFields();
    void outOfRangeNumbersKeepTheirFields();
    void withoutAPersonNothingIsTaken_data();
    void withoutAPersonNothingIsTaken();
    void takenOver();
    void filesThatCannotBeOpened();
    void aHugeFileIsReadInBoundedTime();
    void aFailedSaveKeepsTheOldFile();
    void savingKeepsTheFilePath();
    void samplesOpen();
};

} // namespace quor::test
