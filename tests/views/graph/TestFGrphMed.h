#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFGrphMed : public Test {
    Q_OBJECT

  private slots:
    void showsTheSystem();
    void controls_data();
    void controls();
    void checkBoxesActOnAggiorna();
    void oneMemberIsDrawnAsAPerson_data();
    void oneMemberIsDrawnAsAPerson();
    void halfAPeriodApartGivesAFlatCurve();
    void bars();
    void popupOfADay();
    void popupEnds();
    void optionsChangeThisWindowOnly();
    void anySpanIsCentredOnTheDate();
    void theSeriesIsWorkedOutOnlyForANewSpan();
    void outlivesTheSystem();
};

} // namespace quor::test
