#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// Every window of the program, as it is with real data, for those who work with the keyboard or a
/// screen reader.
class TestWindows : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void noneIsForgotten();
    void boxesGoThroughTheirDoor();
    void theToolkitSpeaksItalian();
    void hasNoFaults_data();
    void hasNoFaults();
    void everyTabHasNoFaults();
    void escapeClosesDialogs_data();
    void escapeClosesDialogs();
    void menusHaveNoFaults_data();
    void menusHaveNoFaults();
    void toolbarCommandsAreInMenus();
    void boxesHaveNoFaults_data();
    void boxesHaveNoFaults();
};

} // namespace quor::test
