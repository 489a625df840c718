#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestDateEntry : public Test {
    Q_OBJECT

  private slots:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void ordersOfOtherLocales_data();
    void ordersOfOtherLocales();
    void shownDatesCanBeTypedBack();
    void namesHaveManyForms_data();
    void namesHaveManyForms();
    void theWordOggi();
    void dialogEntry();
    void calculationDateBox();
};

} // namespace quor::test
