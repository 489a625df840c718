#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFStampaBio : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void wearsTheModeAndHasEverythingChosen();
    void pageGoesWithItsPictures();
    void exportsWhatIsMissingAndPreviews();
    void printsWhatIsThere();
    void asksAboutWhatIsOutdated_data();
    void asksAboutWhatIsOutdated();
    void asksAboutOtherSections();
    void exportsAgainWhenOnePieceIsMissing();
    void failedExportIsTold();
    void failedRendererIsTold_data();
    void failedRendererIsTold();
    void nothingToPrintIsTold();
    void closingInTheMiddleLeavesNothing();
};

} // namespace quor::test
