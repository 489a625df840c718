#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestBusyCursor : public Test {
    Q_OBJECT

  private slots:
    void showsWhileItLives();
    void nests();
};

} // namespace quor::test
