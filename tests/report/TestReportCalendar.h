#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestReportCalendar : public Test {
    Q_OBJECT

  private slots:
    void criticalDays();
    void extremesAndInversionsAreTheForecasts();
    void systemEventsAreTheForecasts();
    void readBackByTheLibrary();
    void secondImportUpdates();
    void uidsStayForGood();
};

} // namespace quor::test
