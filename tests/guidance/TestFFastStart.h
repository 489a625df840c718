#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFFastStart : public Test {
    Q_OBJECT

  private slots:
    void textsAndPictures();
    void choices_data();
    void choices();
    void theThirdChoiceIsInert();
    void keyboard();
    void mostramiCome_data();
    void mostramiCome();
    void aRunningTourKeepsItOpen();
    void checkBoxFollowsTheSetting_data();
    void checkBoxFollowsTheSetting();
    void storedWhenItCloses();
    void storedWhenTheProgramEnds();
    void contentsStayTogetherWhenItIsLarge();
};

} // namespace quor::test
