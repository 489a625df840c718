#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// Runs where a print system serves a queue of the name in QUOR_TEST_QUEUE; see test_cups.py, which
/// looks at what arrives.
class TestCups : public Test {
    Q_OBJECT

  private slots:
    void theDialogKnowsTheQueue();
    void printsChosenPages();
    void printsOnAnotherSheet();
    void paintsWithoutTheHandOverProgram();
    void reportsAnUnknownQueue();
};

} // namespace quor::test
