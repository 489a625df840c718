// The module for the text of calendars.

#include "report/CalendarText.h"

#include <libical/ical.h>

#include <memory>

namespace quor {

namespace {

using Component = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

Component component(icalcomponent* made) {
    return {made, &icalcomponent_free};
}

QByteArray textOf(const Component& part) {
    const std::unique_ptr<char, decltype(&icalmemory_free_buffer)> text(
        icalcomponent_as_ical_string_r(part.get()), &icalmemory_free_buffer);
    return {text.get()};
}

/// The component owns the property from now on.
void add(const Component& part, icalproperty* property) {
    icalcomponent_add_property(part.get(), property);
}

/// A text as it stands in a property that the library does not know, and so leaves as it is: names
/// have commas and semicolons.
icalvalue* escapedText(const QString& text) {
    const std::unique_ptr<icalvalue, decltype(&icalvalue_free)> value(
        icalvalue_new_text(text.toUtf8().constData()), &icalvalue_free);
    const std::unique_ptr<char, decltype(&icalmemory_free_buffer)> escaped(
        icalvalue_as_ical_string_r(value.get()), &icalmemory_free_buffer);
    return icalvalue_new_string(escaped.get());
}

QByteArray emptyCalendar(const QString& title) {
    const Component calendar = component(icalcomponent_new_vcalendar());
    add(calendar, icalproperty_new_prodid("-//Quor//Quor//IT"));
    add(calendar, icalproperty_new_version("2.0"));
    add(calendar, icalproperty_new_calscale("GREGORIAN"));
    icalproperty* const name = icalproperty_new_x("");
    icalproperty_set_x_name(name, "X-WR-CALNAME");
    icalproperty_set_value(name, escapedText(title));
    add(calendar, name);
    // No type that calendars know.
    return textOf(calendar).replace("X-WR-CALNAME;VALUE=STRING:", "X-WR-CALNAME:");
}

QByteArray eventText(const CalendarEntry& made) {
    icaltimetype stamp = icaltime_from_string(made.stamp.constData());
    stamp.is_date = 0;
    stamp.zone = icaltimezone_get_utc_timezone();
    const Component entry = component(icalcomponent_new_vevent());
    add(entry, icalproperty_new_uid(made.uid.toUtf8().constData()));
    add(entry, icalproperty_new_dtstamp(stamp));
    add(entry, icalproperty_new_dtstart(icaltime_from_string(made.day.constData())));
    add(entry, icalproperty_new_summary(made.summary.toUtf8().constData()));
    add(entry, icalproperty_new_categories("Bioritmo"));
    add(entry, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
    return textOf(entry);
}

constexpr CalendarText module{
    .version = QUOR_VERSION, .calendar = emptyCalendar, .event = eventText};

} // namespace

extern "C" Q_DECL_EXPORT const CalendarText* quorCalendar() {
    return &module;
}

} // namespace quor
