#pragma once

#include <QObject>

namespace quor::test {

class TestStatePlot : public QObject {
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
