#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemOperations : public Test {
    Q_OBJECT

  private slots:
    void opening();
    void closing();
    void status();
    void noStatusWithoutASystem();
};

} // namespace quor::test
