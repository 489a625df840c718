#include "report/ReportCalendar.h"

#include "core/Clock.h"
#include "core/Printable.h"
#include "core/Rounding.h"
#include "report/DaySeries.h"

#include <QUuid>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The names under which identifiers of ours are made; drawn once, by lot.
constexpr QUuid uidNamespace{0x23750d9e, 0x5a68, 0x4036, 0x86, 0xe9, 0x38,
                             0xa3,       0xa7,   0x03,   0x05, 0x39};

QByteArray isoDate(std::int32_t dayNumber) {
    std::array<char, 10> text{};
    const char* const end = writeIsoDate(text.data(), dayNumber);
    return {text.data(), end - text.data()};
}

/// "20261225"
QByteArray basicDate(std::int32_t dayNumber) {
    return isoDate(dayNumber).replace("-", "");
}

/// Never changed: identifiers are made of it.
QString kindKey(CalendarEventKind kind) {
    constexpr std::array keys{u"inversione", u"massimo", u"minimo",
                              u"fisico",     u"emotivo", u"intellettivo"};
    return QString::fromUtf16(keys.at(static_cast<std::size_t>(kind)));
}

QString summary(CalendarEventKind kind) {
    constexpr std::array summaries{u"inversione della media", u"massimo della media",
                                   u"minimo della media",     u"giorno critico fisico",
                                   u"giorno critico emotivo", u"giorno critico intellettivo"};
    return QString::fromUtf16(summaries.at(static_cast<std::size_t>(kind)));
}

/// A person is known by name and birth. A system by its name: whoever enters or leaves it moves its
/// events, but it is still the same system.
QString identity(const ReportSubject& subject) {
    const QString name = subject.name.normalized(QString::NormalizationForm_C);
    if (subject.isSystem) {
        return u"sistema\n"_s + name;
    }
    const std::int32_t birth = dayNumber(subject.members.front().birthDate);
    return u"persona\n"_s + name + u'\n' + QString::fromLatin1(isoDate(birth));
}

QString uid(const ReportSubject& subject, const QString& whose, const CalendarEvent& event) {
    const QString name = whose + u'\n' + kindKey(event.kind) + u'\n' +
                         QString::fromLatin1(isoDate(subject.firstDay + event.day));
    return QUuid::createUuidV5(uidNamespace, name).toString(QUuid::WithoutBraces);
}

} // namespace

int cycleSign(double value) {
    constexpr double rounding = 1e-9;
    if (std::abs(value) < rounding) {
        return 0;
    }
    return value < 0 ? -1 : 1;
}

bool isCriticalDay(double dayBefore, double value) {
    const int sign = cycleSign(dayBefore);
    return sign != 0 && cycleSign(value) != sign;
}

std::vector<CalendarEvent> calendarEvents(const ReportSubject& subject, std::int32_t days) {
    using Kind = CalendarEventKind;
    const int extreme = subject.isSystem ? systemExtreme : personExtreme;
    std::vector<CalendarEvent> events;
    const auto observe = [&](std::int32_t day, const StateValues& before,
                             const StateValues& values) {
        const double mean = values[3];
        const int shown = toTenScale(mean);
        const std::array happens{mean * before[3] <= 0,
                                 shown == extreme,
                                 shown == -extreme,
                                 isCriticalDay(before[0], values[0]),
                                 isCriticalDay(before[1], values[1]),
                                 isCriticalDay(before[2], values[2])};
        for (std::size_t kind = 0; kind < happens.size(); ++kind) {
            if (happens.at(kind)) {
                events.push_back({.day = day, .kind = static_cast<Kind>(kind)});
            }
        }
    };

    DaySeries series(subject.dayCounts());
    const auto valuesOf = [](const DaySeries::Block& block, std::size_t day) {
        return StateValues{block[0].at(day), block[1].at(day), block[2].at(day), block[3].at(day)};
    };
    StateValues before = valuesOf(series.values(-1, 1), 0);
    constexpr auto blockLength = static_cast<std::int32_t>(DaySeries::blockLength);
    for (std::int32_t begin = 0; begin < days; begin += blockLength) {
        const auto length = static_cast<std::size_t>(std::min(blockLength, days - begin));
        const DaySeries::Block& block = series.values(begin, length);
        for (std::size_t i = 0; i < length; ++i) {
            const StateValues values = valuesOf(block, i);
            observe(begin + static_cast<std::int32_t>(i), before, values);
            before = values;
        }
    }
    return events;
}

QString eventUid(const ReportSubject& subject, const CalendarEvent& event) {
    return uid(subject, identity(subject), event);
}

void writeCalendar(const ReportSubject& subject, std::int32_t days, const CalendarText& text,
                   ReportStream& stream) {
    const QString name = printable(subject.name);
    // The events stand before the calendar's end, one after the other, so that a long calendar
    // takes no more memory than a short one.
    const QByteArray frame = text.calendar(u"Bioritmo di "_s + name);
    const qsizetype end = frame.lastIndexOf("END:VCALENDAR");
    stream.write(frame.first(end));

    // The stamp is the day's: the same report, made twice on a day, is the same file.
    const QByteArray stamp = basicDate(dayNumber(today()));
    const QString whose = identity(subject);
    for (const CalendarEvent& event : calendarEvents(subject, days)) {
        if (stream.hasFailed()) {
            return;
        }
        stream.write(text.event({.uid = uid(subject, whose, event),
                                 .summary = name + u": "_s + summary(event.kind),
                                 .day = basicDate(subject.firstDay + event.day),
                                 .stamp = stamp}));
    }
    stream.write(frame.sliced(end));
}

} // namespace quor
