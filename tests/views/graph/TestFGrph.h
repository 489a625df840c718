#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFGrph : public Test {
    Q_OBJECT

  private slots:
    void showsTheRecord();
    void checkBoxesActOnAggiorna();
    void checkBoxTexts_data();
    void checkBoxTexts();
    void checkBoxesWearTheirColours();
    void popupOfADay();
    void popupEnds();
    void popupByKeyboard();
    void popupByKeyboardOnASpanWithoutWidth();
    void toldInWords();
    void changesChangeTheWords();
    void focusIsShown();
    void otherButtonsDoNothing();
    void theStartDayStaysFixed();
    void optionsComeThroughTheDialog();
    void aChangedSpanSaysWhereItsCurvesBegin();
    void reopensWithTheNewSpan_data();
    void reopensWithTheNewSpan();
    void reopensOnTheDateOfItsData_data();
    void reopensOnTheDateOfItsData();
    void damagedSpan();
    void aSpanWiderThanThePicture();
    void negativeDayCounts();
    void squeezedItKeepsTheTextReadable();
};

} // namespace quor::test
