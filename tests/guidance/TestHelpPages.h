#pragma once

#include <QObject>

namespace quor::test {

class TestHelpPages : public QObject {
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
