#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFOpt : public Test {
    Q_OBJECT

  private slots:
    void opensTheTwoDialogs();
    void closes();
};

} // namespace quor::test
