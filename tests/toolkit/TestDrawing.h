#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDrawing : public Test {
    Q_OBJECT

  private slots:
    void boxesTakeCornersInAnyOrder();
    void coloursAreBlueGreenRed();
    void boxesIncludeTheirCorners();
    void gridLinesAreNotSmoothed();
    void gridLinesFillGapsBetweenBoxes_data();
    void gridLinesFillGapsBetweenBoxes();
    void curvesAreSmoothed();
    void outlinesAreNotFilled();
    void laterCoversEarlier();
    void textIsReadableOnEveryColour();
};

} // namespace quor::test
