#include "core/DateEntry.h"

#include "core/Clock.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

struct Fields {
    QString day;
    QString month;
    QString year;
};

QString comparable(const QString& monthName) {
    QString text = monthName.toCaseFolded();
    text.remove(u'.');
    return text;
}

/// The month that a name or an abbreviation stands for in one language, or 0.
int monthOfName(const QString& name, const QLocale& locale) {
    const QString wanted = comparable(name);
    for (int month = 1; month <= 12; ++month) {
        for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
            if (wanted == comparable(locale.monthName(month, format)) ||
                wanted == comparable(locale.standaloneMonthName(month, format))) {
                return month;
            }
        }
    }
    return 0;
}

bool isNumber(const QString& field) {
    return !field.isEmpty() &&
           std::all_of(field.begin(), field.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

int monthOf(const QString& field, const QLocale& locale) {
    if (isNumber(field)) {
        return field.size() <= 2 ? field.toInt() : 0;
    }
    const std::array languages{locale, QLocale(QLocale::Italian), QLocale(QLocale::English)};
    for (const QLocale& language : languages) {
        if (const int month = monthOfName(field, language)) {
            return month;
        }
    }
    return 0;
}

/// The year of a field of two or four digits, or nothing.
std::optional<int> yearOf(const QString& field) {
    if (!isNumber(field)) {
        return std::nullopt;
    }
    const int number = field.toInt();
    if (field.size() == 4) {
        return number >= firstYear && number <= lastYear ? std::optional(number) : std::nullopt;
    }
    if (field.size() == 2) {
        return number < 30 ? 2000 + number : 1900 + number;
    }
    return std::nullopt;
}

std::optional<QDate> dateOf(const Fields& fields, const QLocale& locale) {
    const auto year = yearOf(fields.year);
    if (!year || !isNumber(fields.day) || fields.day.size() > 2) {
        return std::nullopt;
    }
    const QDate date(*year, monthOf(fields.month, locale), fields.day.toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// The readings of three fields, the likeliest first.
QList<Fields> readings(const QStringList& parts, DateOrder order) {
    const QString& first = parts[0];
    const QString& second = parts[1];
    const QString& third = parts[2];
    if (isNumber(first) && first.size() == 4) {
        return {{.day = third, .month = second, .year = first}};
    }
    const Fields dayFirst{.day = first, .month = second, .year = third};
    const Fields monthFirst{.day = second, .month = first, .year = third};
    switch (order) {
    case DateOrder::monthDayYear:
        return {monthFirst, dayFirst};
    case DateOrder::yearMonthDay:
        return {{.day = third, .month = second, .year = first},
                {.day = second, .month = third, .year = first},
                dayFirst};
    case DateOrder::dayMonthYear:
        break;
    }
    return {dayFirst, monthFirst};
}

std::optional<QDate> recognise(const QString& text, const QLocale& locale) {
    static const QRegularExpression separator(u"\\s*[/\\-.]\\s*|\\s+"_s,
                                              QRegularExpression::UseUnicodePropertiesOption);
    const QStringList parts = text.trimmed().split(separator);
    if (parts.size() != 3) {
        return std::nullopt;
    }
    for (const Fields& fields : readings(parts, ShortDateFormat::of(locale).order)) {
        if (const auto date = dateOf(fields, locale)) {
            return date;
        }
    }
    return std::nullopt;
}

} // namespace

bool isDateText(const QString& text, const QLocale& locale) {
    return recognise(text, locale).has_value();
}

DateValue dateFromText(const QString& text, const QLocale& locale) {
    const auto date = recognise(text, locale);
    return date ? toDateValue(*date) : 0;
}

bool isTodayKeyword(const QString& text) {
    return text.trimmed().toLower() == u"oggi"_s;
}

std::optional<BiorhythmEntry> acceptBiorhythmEntry(const QString& name, const QString& birthDate,
                                                   const QString& calculationDate) {
    const QString trimmedName = name.trimmed();
    if (!isDateText(birthDate) || !isDateText(calculationDate) || trimmedName.isEmpty()) {
        return std::nullopt;
    }
    return BiorhythmEntry{.name = trimmedName,
                          .birthDate = dateFromText(birthDate),
                          .calculationDate = dateFromText(calculationDate)};
}

std::optional<DateValue> acceptCalculationDate(const QString& text) {
    if (isTodayKeyword(text)) {
        return today();
    }
    if (!isDateText(text)) {
        return std::nullopt;
    }
    return dateFromText(text);
}

} // namespace quor
