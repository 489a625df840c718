#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestFAbout : public Test {
    Q_OBJECT

  private slots:
    void showsNameVersionAndLicence();
    void contactsOpenTheirPage();
    void okCloses();
};

} // namespace quor::test
