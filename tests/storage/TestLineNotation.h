#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLineNotation : public Test {
    Q_OBJECT

  private slots:
    void codePage_data();
    void codePage();
    void everyByteSurvives();
    void writtenValues();
    void quotesAndLineEndsInStrings();
    void strings_data();
    void strings();
    void dates_data();
    void dates();
    void everyDayOfTheCalendar();
    void integers_data();
    void integers();
    void linesEndEitherWay();
    void linesAcrossBlocks();
    void aSlowDevice();
    void theLongestLine();
    void aLongLineIsNoValue();
    void readingIsBounded();
    void endlessLinesAreBounded();
};

} // namespace quor::test
