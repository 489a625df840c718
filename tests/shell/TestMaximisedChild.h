#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestMaximisedChild : public Test {
    Q_OBJECT

  private slots:
    void whatComesAfterIt_data();
    void whatComesAfterIt();
    void whatCanGrow();
    void theWayBack_data();
    void theWayBack();
    void restoredByTheUser_data();
    void restoredByTheUser();
    void closing();
    void closingAllAtOnce();
    void aFormMaximisedByTheUser();
};

} // namespace quor::test
