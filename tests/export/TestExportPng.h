#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportPng : public Test {
    Q_OBJECT

  private slots:
    void writesThePicture();
    void replacesAnOldPicture();
    void withoutASize();
    void tooLarge();
    void outOfMemory();
    void noFolder();
    void aFolderInTheWay();
    void aDeviceIsNotReplaced();
    void aLinkIsNotFollowed();
    void fullAtTheHeader();
    void fullLater();
    void texts();
};

} // namespace quor::test
