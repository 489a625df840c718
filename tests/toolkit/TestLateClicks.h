#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLateClicks : public Test {
    Q_OBJECT

  private slots:
    void accessKeyClicks();
    void waitsForBoxAbove();
    void boxesAboveAreClicked();
    void nothingInClosedWindow();
    void windowBesideDoesNotWait();
};

} // namespace quor::test
