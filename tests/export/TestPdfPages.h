#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestPdfPages : public Test {
    Q_OBJECT

  private slots:
    void allPagesAreTheSameBytes();
    void keepsChosenPagesInTheirOrder();
    void keepsPagesOfASelection();
    void repeatsPagesUnderNumbersOfTheirOwn();
    void ignoresPagesThatAreNotThere();
    void givesUpOnOtherFiles();
    void endsOnATreeThatBitesItsTail();
};

} // namespace quor::test
