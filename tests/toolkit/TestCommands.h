#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestCommands : public Test {
    Q_OBJECT

  private slots:
    void menusHaveTheirCaptions();
    void theMenuOfSystems();
    void theMenuOfBiorhythms();
    void theToolbarHasTwentyPositions();
    void whatNeedsABiorhythm();
};

} // namespace quor::test
