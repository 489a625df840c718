#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestRecovery : public Test {
    Q_OBJECT

  private slots:
    void nothingToOffer();
    void theTimerPutsWorkAside();
    void aBiorhythmIsTakenBack();
    void aSystemIsTakenBack();
    void savedWorkIsNotKept();
    void quittingForgets();
    void closingForgets();
    void nothingIsTakenAwayUnderABox();
    void aBoxThatTheEndClosesAnswersNothing();
    void laterKeepsIt();
    void deletingIsAskedTwice();
    void theOthersWait();
    void aFileWrittenSinceIsTold();
    void namesAreShortened_data();
    void namesAreShortened();
    void damagedWorkIsToldOnce();
    void theNamedFileComesAfterIt();
    void theNamedFileIsRefused();
    void whatIsNoFileClosesNothing();
    void theFastStartWindow();
    void withoutAFolder();
};

} // namespace quor::test
