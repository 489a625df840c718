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
    void aFileGetsItsCopies_data();
    void aFileGetsItsCopies();
    void anotherSheetIsLaidOutAnew();
    void pagesThatTheSheetDoesNotHaveAreReported();
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
    void readsTheSheetOfAPrinter();
    void offersAFileWhatItCanHave();
    void asksAgainWhenTheSheetIsTooSmall();
    void theNameOfAFileIsOneThatAFileCanHave();
    void nobodyWaitsForAPipe();
};

} // namespace quor::test
