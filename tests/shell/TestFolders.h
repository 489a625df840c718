#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFolders : public Test {
    Q_OBJECT

  private slots:
    void besideTheProgramWhenWritable();
    void inTheDataFolderOtherwise();
    void installedForEverybody();
    void existingFoldersAreKept();
    void stateLiesInTheStateHome();
};

} // namespace quor::test
