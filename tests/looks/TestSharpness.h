#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// Pictures on screens with more than one pixel for each of a window's: nothing is magnified.
class TestSharpness : public Test {
    Q_OBJECT

  private slots:
    void scaleIsThat();
    void drawings();
    void pictures_data();
    void pictures();
    void controls_data();
    void controls();
    void boxes_data();
    void boxes();
};

} // namespace quor::test
