#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestHelpPages : public Test {
    Q_OBJECT

  private slots:
    void eachTopicHasAPage_data();
    void eachTopicHasAPage();
    void eachLinkLeadsSomewhere();
    void eachContentsEntryAndKeywordLeadsSomewhere();
    void pagesLeaveTextAndBackgroundToThePalette();
    void collectionIsOpenedAsACopy();
};

} // namespace quor::test
