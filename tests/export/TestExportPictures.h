#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportPictures : public Test {
    Q_OBJECT

  private slots:
    void sizes();
    void weekSizes();
    void weekIsNoWiderThanTheGraph();
    void graphTakesTheRecord();
    void weekTakesTheRecord();
    void fontsFitTheirPicture();
    void narrowPicturesHaveTwoLines();
};

} // namespace quor::test
