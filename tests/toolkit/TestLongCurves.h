#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// Long curves are painted in pieces and covered primitives not at all: the picture must not show
/// it.
class TestLongCurves : public Test {
    Q_OBJECT

  private slots:
    void piecesGiveTheWholeCurve_data();
    void piecesGiveTheWholeCurve();
    void outerClipHolds();
    void coveredPrimitivesLeaveTheLastOne();
};

} // namespace quor::test
