#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestListEscape : public Test {
    Q_OBJECT

  private slots:
    void closesOnlyTheList();
    void closesMenuInDialog();
};

} // namespace quor::test
