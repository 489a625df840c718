#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestPrintDocument : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void cancelledPrintsNothing();
    void aFileGetsTheVeryPages();
    void aFileGetsChosenPages();
    void aFileThatCannotBeWrittenIsReported();
    void nothingButAFileMakesWay();
    void pagesThatCannotBeChosenArePainted();
    void aQueueGetsTheVeryFile();
    void aRefusedPrintIsReported();
    void jobsEndWithTheirParentGone();
    void withoutPrintSystemAnUnknownPrinterIsReported();
    void unreadablePagesAreReported();
    void paintsPagesOnAPrinter();
    void readsTheChoiceOfAPrinter();
    void theNameOfAFileIsOneThatAFileCanHave();
    void nobodyWaitsForAPipe();
};

} // namespace quor::test
