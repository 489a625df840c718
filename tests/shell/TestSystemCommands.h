#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemCommands : public Test {
    Q_OBJECT

  private slots:
    void newSystem();
    void newSystemClosesTheBiorhythm();
    void newSystemClosesTheSystem();
    void enteringMembers();
    void aNameOnlyOnce();
    void aRefusedNameStoresNothing();
    void membersFromFiles();
    void refusedFilesChangeNothing_data();
    void refusedFilesChangeNothing();
    void theEntryClosesWithTheSystem();
    void aNewEntryAfterTheSystem();
    void openingAFile();
    void openingAFileOfToday();
    void openingClosesFirst();
    void aCancelledOpenLeavesNoSystem();
    void commandLineText();
    void oneViewInFront_data();
    void oneViewInFront();
    void savingAs();
    void savingToTheKnownFile();
    void aFailedSaveIsReported();
    void closing();
    void aClosedSystemLeavesNothing();
    void closingSavesFirst();
    void aCancelledSaveKeepsTheSystem();
    void closingIsRefused();
    void savingAMemberKeepsTheSystemUnsaved();
    void exportAndPrintGiveEverythingBack();
    void theEntryWaitsForTheExport();
    void theExportClosesWithTheSystem();
    void quitting();
    void quittingAnEmptySystem();
    void theCloseBoxAsks();
};

} // namespace quor::test
