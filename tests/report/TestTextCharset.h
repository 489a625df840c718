#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestTextCharset : public Test {
    Q_OBJECT

  private slots:
    void localesOfTerminals_data();
    void localesOfTerminals();
    void encoded();
};

} // namespace quor::test
