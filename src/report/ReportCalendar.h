#pragma once

#include "report/CalendarText.h"
#include "report/ReportData.h"
#include "report/ReportStream.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace quor {

enum class CalendarEventKind : std::uint8_t {
    inversion, ///< of the mean, as the forecast finds it: it is 0, has another sign, or was 0
    maximum,   ///< the mean shows the value that the forecast looks for: 10, or 9 of a system
    minimum,   ///< the negative of that
    physical,  ///< critical day of a cycle
    emotional,
    intellectual,
};

struct CalendarEvent {
    std::int32_t day = 0; ///< days after the calculation date
    CalendarEventKind kind = CalendarEventKind::inversion;

    friend bool operator==(const CalendarEvent&, const CalendarEvent&) = default;
};

/// The sign of a cycle value: -1, 0 or 1. What is nearer to 0 than any value of a day that is not
/// meant to be 0 (half a period after the birth the rounding of the circle leaves 3e-15) is 0.
[[nodiscard]] int cycleSign(double value);

/// Whether a cycle has its critical day: the first on which it no longer has the sign that it had
/// the day before. It stands on zero or has crossed it; the day after a zero is not critical again.
[[nodiscard]] bool isCriticalDay(double dayBefore, double value);

/// The events of so many days from the calculation date on, by day and then by kind. Of a system
/// they are those of the means over its members.
[[nodiscard]] std::vector<CalendarEvent> calendarEvents(const ReportSubject& subject,
                                                        std::int32_t days);

/// What identifies an event for good. It depends on whose it is (a person's name and birth, the
/// name of a system's file), its kind and its day, and on nothing else, so that a calendar that is
/// imported again takes the place of what is there.
[[nodiscard]] QString eventUid(const ReportSubject& subject, const CalendarEvent& event);

/// The report as a calendar after RFC 5545: the events as whole days.
/// @param days so many that the last one lies in year 9999 or before
void writeCalendar(const ReportSubject& subject, std::int32_t days, const CalendarText& text,
                   ReportStream& stream);

} // namespace quor
