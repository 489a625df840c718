#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestChildArrangement : public Test {
    Q_OBJECT

  private slots:
    void wide_data();
    void wide();
    void tall_data();
    void tall();
    void icons();
    void everyPixelIsCovered();
};

} // namespace quor::test
