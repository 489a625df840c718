#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSettingsStore : public Test {
    Q_OBJECT

  private slots:
    void missingMeansTrue();
    void storedTextIsKeptAsItStands();
    void theFileIsNamedAfterTheProgram();
};

} // namespace quor::test
