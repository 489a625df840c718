#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWholeFile : public Test {
    Q_OBJECT

  private slots:
    void theNewFileTakesTheOldOnesPlace();
    void theOldFileOutlivesAFullDisk();
    void nothingTakesThePlaceOfWhatIsNoFile();
    void readersAreKeptOrNone();
    void onlyFilesAreOpened();
};

} // namespace quor::test
