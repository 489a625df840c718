#include "core/Clock.h"

namespace quor {

namespace {

/// Null while the system's clock counts.
QDate& fixedDay() {
    static QDate day;
    return day;
}

} // namespace

DateValue today() {
    return toDateValue(fixedDay().isValid() ? fixedDay() : QDate::currentDate());
}

FixedClock::FixedClock(QDate day)
    : m_previous(fixedDay()) {
    set(day);
}

FixedClock::~FixedClock() {
    fixedDay() = m_previous;
}

// Not static: a clock is set through the object that will put the old one back.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
void FixedClock::set(QDate day) {
    fixedDay() = day;
}

} // namespace quor
