#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDaysEntry : public Test {
    Q_OBJECT

  private slots:
    void numbers_data();
    void numbers();
    void days_data();
    void days();
    void overflow_data();
    void overflow();
};

} // namespace quor::test
