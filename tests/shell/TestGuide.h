#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// The fast-start window and the guided tours in the frame.
class TestGuide : public Test {
    Q_OBJECT

  private slots:
    void whenItGreets_data();
    void whenItGreets();
    void inASmallFrame();
    void fromTheMenu();
    void firstTour();
    void secondTour();
    void theOpenPersonIsClosedFirst();
    void theOpenSystemIsClosedFirst();
    void aKeptPersonEndsTheTour();
    void aKeptSystemEndsTheTour();
    void closingTheSystemEndsTheTour();
    void endingWhileThePersonIsEntered();
    void theSystemsEntryIsNotHeld();
    void theSystemsEntryOutlivesTheTour();
    void theSystemsButtonsComeBack_data();
    void theSystemsButtonsComeBack();
    void insertingAFile();
    void choicesAskAboutWhatIsOpen();
    void theGreetingIsKeptAtEveryEnd();
    void anExportOfThePersonDuringATour();
    void anExportOfTheSystemDuringATour();
    void quittingEndsTheTour();
    void quittingEndsTheSystemsTour();
    void aRefusedQuitDoesNot();
    void theProgramsEnd();
    void onlyOneTour();
    void highlightedButtons();
    void theToolbarStaysInSight();
};

} // namespace quor::test
