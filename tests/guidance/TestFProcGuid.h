#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFProcGuid : public Test {
    Q_OBJECT

  private slots:
    void theTableKnowsTwoTours();
    void theWindow();
    void firstTourToTheEnd();
    void secondTourToTheEnd();
    void waitsForTheBiorhythm();
    void theEntryCanBeClosedWhileNothingIsAsked();
    void endsWell_data();
    void endsWell();
    void aRefusalEndsIt();
    void aClosedSystemEndsIt();
    void aClosedSystemBeforeItIsNeeded();
    void anEntryThatGoesWithoutABiorhythmEndsIt();
    void deletedByTheOpening();
    void theSizeStays();
    void placedInTheCornerOfTheFrame();
};

} // namespace quor::test
