#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestSystemTreeModel : public Test {
    Q_OBJECT

  private slots:
    void empty();
    void branchesAndLeaves();
    void keepsTheRulesOfModels();
    void adding();
    void removingTheFirstOfThree();
    void removingTheLastOfTheList();
    void removingUntilNoneIsLeft();
    void leavesStayWithTheirBranch();
    void fillingAgain();
    void theLargestSystem();
    void manyRowsComeInTwoParts();
    void endlessNamesAreCut();
};

} // namespace quor::test
