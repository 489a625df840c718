#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFramePlace : public Test {
    Q_OBJECT

  private slots:
    void theFirstStart();
    void aFrameComesBackWhereItWas();
    void aMaximisedFrame();
    void aFrameThatWasNeverShown();
    void beyondTheScreen();
    void damagedPlaces_data();
    void damagedPlaces();
};

} // namespace quor::test
