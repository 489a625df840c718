#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFGrphSet : public Test {
    Q_OBJECT

  private slots:
    void controls();
    void onePictureForEachRow();
    void copiesTheRecordWhenMade();
    void weekOfASundayAndOfAMonday();
    void birthIsTheOneOfTheLastApply();
    void legendWearsItsColours();
    void newColoursReplaceAndRedraw();
    void optionsDialogStartsFromTheWindow();
    void textsOfARowDoNotMeet_data();
    void textsOfARowDoNotMeet();
    void largeFontsAreReduced();
    void resizingLaysOutAgain();
    void closes();
    void asksForItsHelp();
};

} // namespace quor::test
