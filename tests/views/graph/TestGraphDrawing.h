#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestGraphDrawing : public Test {
    Q_OBJECT

  private slots:
    void barColours_data();
    void barColours();
    void seriesOfOneDay();
    void layersComeInTheirOrder();
    void aKnownPerson();
    void dayNumbers_data();
    void dayNumbers();
    void nothingTicked();
    void dayNumbersFollowTheLocale();
    void severalYearsOfDays();
};

} // namespace quor::test
