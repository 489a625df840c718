#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestStatePlot : public Test {
    Q_OBJECT

  private slots:
    void unitIsSinglePrecision();
    void positiveStandsOnZeroLine();
    void negativeHangsFromZeroLine();
    void zeroHasNoHeight();
    void extremesReachTheLines();
    void coordinatesAreRoundedToNearest();
    void columnsShareTheWidth();
    void nothingOverlaps();
    void tooSmallPictureHasNoNegativeSizes();
};

} // namespace quor::test
