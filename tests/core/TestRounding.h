#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestRounding : public Test {
    Q_OBJECT

  private slots:
    void tiesGoToTheEvenNumber_data();
    void tiesGoToTheEvenNumber();
    void numbersBeyondTheTypeGiveNothing();
    void pixelsStayWithinBounds();
    void tenScaleCoversTheWholeRange();
};

} // namespace quor::test
