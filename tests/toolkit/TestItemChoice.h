#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestItemChoice : public Test {
    Q_OBJECT

  private slots:
    void toolsChoose();
    void handsDoNot();
    void inATreeTheItemItself();
    void inADropDownList();
};

} // namespace quor::test
