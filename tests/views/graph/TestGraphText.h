#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestGraphText : public Test {
    Q_OBJECT

  private slots:
    void valuesAreRoundedAsInThePopup();
    void aGraphInWords();
    void nothingDrawn();
    void withoutATitle();
    void placeOfThePopup_data();
    void placeOfThePopup();
};

} // namespace quor::test
