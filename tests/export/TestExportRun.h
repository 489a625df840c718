#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportRun : public Test {
    Q_OBJECT

  private slots:
    void stepsAndCaptions();
    void oneOfASystem();
    void wholeSystem();
    void membersBecomeCurrent();
    void bothVariantsSideBySide();
    void onlyThePage();
    void failuresAreLoggedAndCounted();
    void summaryPathOfARun();
    void nobodyToExport();
    void noMemberTakesTheFilesOfAnother();
    void membersOfTheMomentCount();
};

} // namespace quor::test
