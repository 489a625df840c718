#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSettingsStore : public Test {
    Q_OBJECT

  private slots:
    void missingMeansTrue();
    void storedTextIsKeptAsItStands();
    void whatAHandHasWrittenStays();
    void anyTextComesBack_data();
    void anyTextComesBack();
    void whatIsNoFile();
    void aHugeFileIsNotOurs();
    void whatWasSavedLastComesBack();
    void aDamagedStoreCanBeWritten_data();
    void aDamagedStoreCanBeWritten();
    void theFileIsNamedAfterTheProgram();
};

} // namespace quor::test
