#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCommandLine : public Test {
    Q_OBJECT

  private slots:
    void options_data();
    void options();
    void exportsWithoutAWindow();
    void reportsWithoutAWindow();
    void textIsJoinedByBlanks();
    void firstAndLastCharacterGo_data();
    void firstAndLastCharacterGo();
    void usageNamesEveryOptionAndFile();
};

} // namespace quor::test
