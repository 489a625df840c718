#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestExportNames : public Test {
    Q_OBJECT

  private slots:
    void prefixes_data();
    void prefixes();
    void datesHaveTwoTwoAndFourDigits();
    void baseNames_data();
    void baseNames();
    void fileNameParts_data();
    void fileNameParts();
    void longNamesAreCut();
    void cutNamesStayApart();
    void membersStayApart_data();
    void membersStayApart();
    void everyMemberOfALargeSystemHasItsOwnFiles();
};

} // namespace quor::test
