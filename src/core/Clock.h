#pragma once

#include "core/Dates.h"

/// The one place where the program learns which day it is.
namespace quor {

/// Today in local time, without a time of day.
[[nodiscard]] DateValue today();

/// While it lives, today is the given day. For tests and for work done as of another day; the
/// previous clock is back when it goes.
class FixedClock {
  public:
    explicit FixedClock(QDate day);
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
    FixedClock(FixedClock&&) = delete;
    FixedClock& operator=(FixedClock&&) = delete;

    void set(QDate day);

  private:
    QDate m_previous;
};

} // namespace quor
