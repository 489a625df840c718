#include "report/TestReportCalendar.h"

#include "core/Clock.h"
#include "core/Cycles.h"
#include "report/ReportCalendar.h"

#include <QBuffer>
#include <QSet>

#include <libical/ical.h>

#include <algorithm>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

using Kind = CalendarEventKind;

constexpr std::int32_t firstDay = 46'347; // 2026-11-21

ReportSubject person(std::int32_t dayCount, const QString& name = u"Anna"_s) {
    return {.isSystem = false,
            .name = name,
            .firstDay = firstDay,
            .members = {{.name = name, .birthDate = static_cast<DateValue>(firstDay - dayCount)}}};
}

ReportSubject family() {
    ReportSubject system{.isSystem = true, .name = u"Casa"_s, .firstDay = firstDay, .members = {}};
    for (const std::int32_t dayCount : {9000, 9003, 8998, -50}) {
        system.members.push_back(
            {.name = u"P"_s, .birthDate = static_cast<DateValue>(firstDay - dayCount)});
    }
    return system;
}

QByteArray calendarOf(const ReportSubject& subject, std::int32_t days) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ReportStream stream(buffer);
    writeCalendar(subject, days, *quorCalendar(), stream);
    stream.flush();
    return buffer.data();
}

/// The days of one kind.
std::vector<std::int32_t> daysOf(const std::vector<CalendarEvent>& events, Kind kind) {
    std::vector<std::int32_t> days;
    for (const CalendarEvent& event : events) {
        if (event.kind == kind) {
            days.push_back(event.day);
        }
    }
    return days;
}

using Component = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

Component parsed(const QByteArray& text) {
    return {icalparser_parse_string(text.constData()), &icalcomponent_free};
}

} // namespace

void TestReportCalendar::criticalDays() {
    // From the day before the birth on. Half a period after it the emotional cycle stands on zero,
    // though rounding leaves a last bit of it; those of 23 and 33 days cross zero between two days.
    const auto events = calendarEvents(person(-1), 60);
    QVERIFY(daysOf(events, Kind::physical) == (std::vector{1, 13, 24, 36, 47, 59}));
    QVERIFY(daysOf(events, Kind::emotional) == (std::vector{1, 15, 29, 43, 57}));
    QVERIFY(daysOf(events, Kind::intellectual) == (std::vector{1, 18, 34, 51}));
    // The day after a zero is not critical again, and a cycle that stays at zero never is.
    QVERIFY(isCriticalDay(-0.2, 0));
    QVERIFY(isCriticalDay(-0.2, 1e-15));
    QVERIFY(!isCriticalDay(0, 0.2));
    QVERIFY(!isCriticalDay(1e-15, -0.2));
    QVERIFY(!isCriticalDay(-1e-15, 1e-15));
    QVERIFY(isCriticalDay(0.1, -0.1));
    QVERIFY(!isCriticalDay(0.1, 0.2));
    for (std::int32_t day = -meanPeriod; day <= meanPeriod; ++day) {
        for (const Period period : periods) {
            const double value = std::abs(cycleValue(day, period));
            QVERIFY(value < 1e-12 || value > 1e-2); // nothing near the bound
        }
    }
}

void TestReportCalendar::extremesAndInversionsAreTheForecasts() {
    constexpr std::int32_t days = 3000;
    for (const std::int32_t dayCount : {-1500, 13'285}) {
        const auto events = calendarEvents(person(dayCount), days);
        for (const auto& [kind, part] : {std::pair{Kind::inversion, &Forecast::inversion},
                                         std::pair{Kind::maximum, &Forecast::maximum},
                                         std::pair{Kind::minimum, &Forecast::minimum}}) {
            // The forecast made on the day before names exactly these days as tomorrow.
            const auto found = daysOf(events, kind);
            QVERIFY(!found.empty());
            for (std::int32_t day = 0; day < days; ++day) {
                const auto next = personForecast(dayCount + day - 1).*part;
                QCOMPARE(next == 1, std::ranges::binary_search(found, day));
            }
        }
    }
}

void TestReportCalendar::systemEventsAreTheForecasts() {
    const ReportSubject system = family();
    const auto events = calendarEvents(system, 800);
    for (const auto& [kind, part] : {std::pair{Kind::inversion, &Forecast::inversion},
                                     std::pair{Kind::maximum, &Forecast::maximum},
                                     std::pair{Kind::minimum, &Forecast::minimum}}) {
        const auto found = daysOf(events, kind);
        for (std::int32_t day = 0; day < 800; ++day) {
            std::vector<std::int32_t> counts = system.dayCounts();
            std::ranges::for_each(counts, [&](std::int32_t& count) { count += day; });
            const auto next = systemForecast(SystemMean(counts)).*part;
            QCOMPARE(next == 0, std::ranges::binary_search(found, day));
        }
    }
    QVERIFY(!daysOf(events, Kind::inversion).empty());
}

void TestReportCalendar::readBackByTheLibrary() {
    const FixedClock clock(QDate(2026, 11, 22));
    const QString name =
        u"D'Amico, Niccolò; \\n e una riga che va piegata perché è lunga assai\x1b"_s;
    const ReportSubject subject = person(13'285, name);
    const QByteArray text = calendarOf(subject, 400);
    for (const QByteArray& line : text.split('\n')) {
        QVERIFY(line.size() <= 76); // 75 octets and the carriage return
        QVERIFY(line.isEmpty() || line.endsWith('\r'));
    }
    const Component calendar = parsed(text);
    QVERIFY(calendar != nullptr);
    QCOMPARE(icalcomponent_count_errors(calendar.get()), 0);
    QVERIFY(icalrestriction_check(calendar.get()) != 0);
    QByteArray unfolded = text;
    unfolded.replace("\r\n ", "");
    // With no comma or semicolon of its own, which would end a text.
    QVERIFY2(unfolded.contains("\r\nX-WR-CALNAME:Bioritmo di D'Amico\\, Niccol\xC3\xB2\\; "
                               "\\\\n e una riga"),
             unfolded.first(400).constData());

    const auto events = calendarEvents(subject, 400);
    std::size_t place = 0;
    for (icalcomponent* entry =
             icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
         entry != nullptr;
         entry = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
        QVERIFY(place < events.size());
        const CalendarEvent& event = events.at(place++);
        const icaltimetype start = icalcomponent_get_dtstart(entry);
        QVERIFY(start.is_date != 0);
        QCOMPARE(QDate(start.year, start.month, start.day), toQDate(firstDay + event.day));
        QCOMPARE(QString::fromUtf8(icalcomponent_get_uid(entry)), eventUid(subject, event));
        const QString summary = QString::fromUtf8(icalcomponent_get_summary(entry));
        QVERIFY(summary.startsWith(name.chopped(1) + u"?: "_s));
        const icaltimetype stamp = icalcomponent_get_dtstamp(entry);
        QCOMPARE(QDate(stamp.year, stamp.month, stamp.day), QDate(2026, 11, 22));
        QVERIFY(icaltime_is_utc(stamp) != 0);
    }
    QCOMPARE(place, events.size());
    QVERIFY(place > 80);
}

void TestReportCalendar::secondImportUpdates() {
    // What a calendar program keeps: one entry for each identifier.
    std::map<QString, QString> kept;
    const auto import = [&kept](const QByteArray& text) {
        const Component calendar = parsed(text);
        for (icalcomponent* entry =
                 icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
             entry != nullptr;
             entry = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
            kept[QString::fromUtf8(icalcomponent_get_uid(entry))] =
                QString::fromUtf8(icalcomponent_get_summary(entry));
        }
    };
    ReportSubject subject = person(13'285);
    import(calendarOf(subject, 365));
    const std::size_t year = kept.size();
    QCOMPARE(year, calendarEvents(subject, 365).size());
    import(calendarOf(subject, 365));
    QCOMPARE(kept.size(), year);
    // From another day of calculation on: only the days that were not there are added.
    subject.firstDay += 100;
    import(calendarOf(subject, 265));
    QCOMPARE(kept.size(), year);
    import(calendarOf(subject, 365));
    QVERIFY(kept.size() > year);
    // Another person has events of their own.
    const std::size_t one = kept.size();
    import(calendarOf(person(13'285, u"Bruno"_s), 365));
    QCOMPARE(kept.size(), one + year);
}

void TestReportCalendar::uidsStayForGood() {
    // Calendars out there hold them.
    QCOMPARE(eventUid(person(13'285), {.day = 1, .kind = Kind::emotional}),
             u"78eb83ee-e1eb-590e-960b-bbcda6c4aa82"_s);
    QCOMPARE(eventUid(family(), {.day = 0, .kind = Kind::maximum}),
             u"cccedd88-1947-5faa-99ce-dea08d6c0b10"_s);
    // A system stays the same whoever enters it.
    ReportSubject grown = family();
    grown.members.push_back({.name = u"Q"_s, .birthDate = 40'000});
    QCOMPARE(eventUid(grown, {.day = 0, .kind = Kind::maximum}),
             eventUid(family(), {.day = 0, .kind = Kind::maximum}));
    QSet<QString> all;
    for (const CalendarEvent& event : calendarEvents(person(0), 22'000)) {
        all.insert(eventUid(person(0), event));
    }
    QCOMPARE(static_cast<std::size_t>(all.size()), calendarEvents(person(0), 22'000).size());
}

} // namespace quor::test
