#pragma once

#include <QByteArray>
#include <QString>

/// The text of a calendar after RFC 5545. It is made by libical, which the module `quor-calendar`
/// alone links.
namespace quor {

/// A day without hours, on which something happens.
struct CalendarEntry {
    QString uid;
    QString summary;
    QByteArray day;   ///< "20261225"
    QByteArray stamp; ///< the day on which the entry is made, likewise
};

/// What the module offers.
struct CalendarText {
    const char* version; ///< that of the program
    /// A calendar without events; they stand before its end, "END:VCALENDAR".
    QByteArray (*calendar)(const QString& title);
    QByteArray (*event)(const CalendarEntry& entry);
};

/// The module's one function.
extern "C" const CalendarText* quorCalendar();

/// Loads the module if it is not there yet.
/// @param fault where there is none: one sentence for the user
/// @return null then
[[nodiscard]] const CalendarText* calendarText(QString& fault);

/// For a program that has the module built in, as tests do.
void useCalendarText(const CalendarText* text);

} // namespace quor
