#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestReportText : public Test {
    Q_OBJECT

  private slots:
    void personSaysWhatTheWindowsShow();
    void systemSaysWhatTheWindowsShow();
    void eightyColumns();
    void asciiTerminals();
    void printableNames();
};

} // namespace quor::test
