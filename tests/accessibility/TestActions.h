#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// What an assistive tool does to a control has the consequence that a hand has, in every window.
class TestActions : public Test {
    Q_OBJECT

  private slots:
    void initTestCase();
    void buttons_data();
    void buttons();
    void lists_data();
    void lists();
    void items_data();
    void items();
};

} // namespace quor::test
