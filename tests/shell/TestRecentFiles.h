#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestRecentFiles : public Test {
    Q_OBJECT

  private slots:
    void whereTheyStand();
    void accessKeys();
    void nothingYet();
    void whatEnters();
    void whatDoesNotEnter();
    void aSystemEnters();
    void aMemberEnters();
    void entries();
    void theSameNameInTwoFolders();
    void aLongName();
    void choosing();
    void choosingASystem();
    void aMissingFile();
    void unreadableFiles_data();
    void unreadableFiles();
    void savedIntoTheFileThatIsChosen();
    void emptying();
    void anotherProgramsFiles();
    void whileOpeningIsLocked();
    void whileTheFrameIsDisabled();
};

} // namespace quor::test
