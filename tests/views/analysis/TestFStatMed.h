#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFStatMed : public Test {
    Q_OBJECT

  private slots:
    void oneMemberLooksLikeThePerson();
    void knownSystem();
    void halfAnEmotionalPeriodApart();
    void orderOfMembersDoesNotShow();
    void membersBeyondTheCountDoNotCount();
    void largestSystem();
    void systemWithoutMembers();
    void staysAsItWasMade();
    void cursorIsRestored();
    void titleAndObjectName();
    void labels();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
};

} // namespace quor::test
