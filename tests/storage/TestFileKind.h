#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFileKind : public Test {
    Q_OBJECT

  private slots:
    void endings_data();
    void endings();
};

} // namespace quor::test
