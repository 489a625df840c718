#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestLeftProducts : public Test {
    Q_OBJECT

  private slots:
    void changedData_data();
    void changedData();
    void everySection_data();
    void everySection();
    void spoiltFiles_data();
    void spoiltFiles();
    void otherDaysAndSizes();
};

} // namespace quor::test
