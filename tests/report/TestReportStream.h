#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestReportStream : public Test {
    Q_OBJECT

  private slots:
    void numbersReadBack();
    void isoDates();
    void piecesArriveInOrder();
    void aFailureStays();
};

} // namespace quor::test
