#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFComp : public Test {
    Q_OBJECT

  private slots:
    void titleAndNames();
    void listsInMemberOrder();
    void onlyTheMembersThatCount();
    void oneChosenDrawsNothing();
    void bothChosenWriteTheTexts();
    void sameMemberTwice();
    void choosingAgainComparesAgain();
    void dayCountsWithoutACommonBit();
    void differenceTooLong();
    void namesWhomThePanelsShow();
    void theNamesWearTheColours();
    void colours();
    void resizingDrawsAnew();
    void resizingKeepsWhatIsShown();
    void largerFontMakesRoom();
    void staysAsItWasMade();
    void keyboardChooses();
    void veryManyMembers();
    void veryLongNames();
    void screenReaders();
    void tabOrder();
    void accessKeys();
    void helpOpensItsTopic();
    void closes();
};

} // namespace quor::test
