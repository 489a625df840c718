#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestWebBrowser : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void loadsAPage();
    void takesBlanksInAddresses();
    void failsWithAReason_data();
    void failsWithAReason();
    void failsOnPagesElsewhere();
    void failsWithoutRenderer();
    void failsWhenTheRendererDoesNotStart();
    void failsWhenTheRendererCrashes();
    void failsWhenThereIsNoPage();
    void failsAfterTheTimeLimit();
    void endsTheProcessesItStarted();
    void onlyTheLastNavigationCounts();
    void stopsWithoutAWord();
    void loadsAgain();
    void prints();
    void previews();
    void saysWhenTheModuleIsMissing();
    void staysHidden();
#ifdef QUOR_RENDERER // not with sanitizers
    void rendersForReal();
#endif
};

} // namespace quor::test
