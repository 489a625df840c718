#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWeekDrawing : public Test {
    Q_OBJECT

  private slots:
    void sameAsReference_data();
    void sameAsReference();
    void lowestValueHangsDownInTheStableColour();
    void meanHasTheSameLimits();
    void eachStateHasItsColour();
    void gridAndFrameCoverTheBars();
    void namesAreTheLocales();
    void textsTakeTheLargestFontThatFits();
    void textsOfARowDoNotMeet_data();
    void textsOfARowDoNotMeet();
};

} // namespace quor::test
