#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestStateFile : public Test {
    Q_OBJECT

  private slots:
    void nothingAtFirst();
    void newestFirst();
    void eightOfEachKind();
    void removing();
    void thePlaceOfTheFrame();
    void whatANameMayHold();
    void whatNoLineCanHold();
    void theLongestPathsFitTheFile();
    void aRelativePath();
    void damagedContents_data();
    void damagedContents();
    void whatIsNoFile();
    void programsSideBySide();
    void programsAtTheSameMoment();
    void aLockThatIsNotGivenBack();
    void aFolderThatCannotBeMade();
    void nobodyElseReadsIt();
};

} // namespace quor::test
