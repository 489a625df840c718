#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportBatch : public Test {
    Q_OBJECT

  private slots:
    void aPersonsFile();
    void forPrint();
    void anotherDate();
    void wrongRequests_data();
    void wrongRequests();
    void failuresGoToTheErrors();
    void aListThatCannotBeWritten();
    void whatATerminalWouldObey();
    void aSystemsFile();
};

} // namespace quor::test
