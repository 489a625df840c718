#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestNamedFile : public Test {
    Q_OBJECT

  private slots:
    void aPersonInFreshData();
    void aSystemIsOpen();
    void faults_data();
    void faults();
};

} // namespace quor::test
