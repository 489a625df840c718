#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFIns : public Test {
    Q_OBJECT

  private slots:
    void opensWithTheRecord();
    void todayWhenThereIsNoDate();
    void okStoresAndApplies();
    void refusals_data();
    void refusals();
    void checkBoxesWriteAtOnce();
    void cancelStoresNothing();
    void setToToday();
    void aTourHoldsItOpen();
    void readableWithALargeFont();
    void helpButton();
};

} // namespace quor::test
