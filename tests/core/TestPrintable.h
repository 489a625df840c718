#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestPrintable : public Test {
    Q_OBJECT

  private slots:
    void lettersStay();
    void commandsAreQuestionMarks();
};

} // namespace quor::test
