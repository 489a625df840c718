#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestStateBars : public Test {
    Q_OBJECT

  private slots:
    void barsHaveTheirColours();
    void barsStandAndHang();
    void zeroHasNoBar();
    void arrowsFollowTheTrend();
    void arrowsStandBesideTheirBars();
    void scaleLinesShow();
    void numbersAreReadOut();
    void sharpAtTwoPixelsPerUnit();
    void followsThePalette();
};

} // namespace quor::test
