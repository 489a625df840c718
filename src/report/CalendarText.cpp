#include "report/CalendarText.h"

#include "toolkit/LateModule.h"

namespace quor {

namespace {

constexpr LateModule calendarModule{
    .file = "quor-calendar.so", .function = "quorCalendar", .task = u"scrive i calendari"};

const CalendarText*& loadedText() {
    static const CalendarText* loaded = nullptr;
    return loaded;
}

} // namespace

const CalendarText* calendarText(QString& fault) {
    if (loadedText() != nullptr) {
        return loadedText();
    }
    const auto function =
        reinterpret_cast<const CalendarText* (*)()>(loadModule(calendarModule, fault));
    const CalendarText* found = function != nullptr ? function() : nullptr;
    if (found != nullptr && isOfThisVersion(calendarModule, found->version, fault)) {
        loadedText() = found;
    }
    return loadedText();
}

void useCalendarText(const CalendarText* text) {
    loadedText() = text;
}

} // namespace quor
