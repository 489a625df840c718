#pragma once

#include <QObject>

namespace quor::test {

class TestStateBars : public QObject {
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
