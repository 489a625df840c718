#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWholeFile : public Test {
    Q_OBJECT

  private slots:
    void theNewFileTakesTheOldOnesPlace();
    void theOldFileOutlivesAFullDisk();
    void readersAreKeptOrNone();
    void onlyFilesAreOpened();
    void everyPieceIsWritten();
    void nothingButAFileMakesWay();
};

} // namespace quor::test
