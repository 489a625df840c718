#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestHtmlText : public Test {
    Q_OBJECT

  private slots:
    void texts_data();
    void texts();
    void addresses_data();
    void addresses();
};

} // namespace quor::test
