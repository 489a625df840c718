#include "core/DateEntry.h"

#include "core/Clock.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// A text without what makes no difference: letter case, apostrophes, invisible characters and dots
/// after letters. The locale's digits become Western ones.
QString comparable(QString text, const QLocale& locale) {
    const char32_t zero = locale.zeroDigit().toUcs4().constFirst();
    for (char32_t digit = 0; digit < 10 && zero != U'0'; ++digit) {
        const char32_t own = zero + digit;
        text.replace(QString::fromUcs4(&own, 1), QString::number(digit));
    }
    static const QRegularExpression ignored(u"\\p{Cf}|(?<=[\\p{L}\\p{M}])['\\x{2019}\\x{2BC}]"_s);
    static const QRegularExpression abbreviationDot(u"(?<=[\\p{L}\\p{M}])\\."_s);
    return text
        .normalized(QString::NormalizationForm_D) // else "İ" would keep its case
        .toCaseFolded()
        .remove(ignored)
        .replace(abbreviationDot, u" "_s)
        .simplified();
}

/// The same without accents, and with a dot on every i.
QString plain(QString text) {
    static const QRegularExpression accents(u"[\\x{300}-\\x{36F}]"_s);
    return text.remove(accents).replace(u'ı', u'i');
}

/// What each comparable name stands for: months or days of the week, counted from 1.
using Names = QHash<QString, QList<int>>;
using NameOf = QString (QLocale::*)(int, QLocale::FormatType) const;

/// The names in the locale's language, in Italian and in English, the likeliest meaning first: long
/// and short, inflected and not; then what is left of one without accents or after its first three
/// letters, where no other name of that language leaves the same.
Names namesOf(int count, NameOf inflected, NameOf standalone, const QLocale& locale) {
    Names names;
    Names parts;
    const std::array languages{locale, QLocale(QLocale::Italian), QLocale(QLocale::English)};
    for (const QLocale& language : languages) {
        Names partsHere;
        for (int i = 1; i <= count; ++i) {
            for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
                for (const NameOf nameOf : {inflected, standalone}) {
                    const QString name = comparable((language.*nameOf)(i, format), locale);
                    names[name] << i;
                    for (const QString& written : {name, plain(name)}) {
                        for (qsizetype size = 3; size <= written.size(); ++size) {
                            partsHere[written.first(size)] << i;
                        }
                    }
                }
            }
        }
        for (const auto& [part, meanings] : partsHere.asKeyValueRange()) {
            if (part.back().isLetter() &&
                meanings.count(meanings.constFirst()) == meanings.size()) {
                parts[part] << meanings.constFirst();
            }
        }
    }
    for (const auto& [part, meanings] : parts.asKeyValueRange()) {
        names[part] << meanings;
    }
    names.remove({}); // a language without abbreviations
    return names;
}

/// An expression for any of the names, the longest first.
QString anyOf(const Names& names) {
    QStringList all = names.keys();
    std::ranges::sort(all, std::greater(), &QString::size);
    for (QString& name : all) {
        name = QRegularExpression::escape(name);
    }
    return all.join(u'|');
}

/// The dates that can be typed under a locale.
class DateReader {
  public:
    explicit DateReader(const QLocale& locale)
        : m_locale(locale) {
        QStringList patterns{u"dddd, d M, y"_s, u"dddd, M d, y"_s};
        switch (ShortDateFormat::of(locale).order) {
        case DateOrder::monthDayYear:
            patterns.swapItemsAt(0, 1);
            break;
        case DateOrder::yearMonthDay:
            patterns = QStringList{u"dddd, y M d"_s, u"dddd, yy d M"_s} + patterns;
            break;
        case DateOrder::dayMonthYear:
            break;
        }
        patterns << u"dddd, yyyy M d"_s << locale.dateFormat(QLocale::LongFormat);
        for (const QString& pattern : patterns) {
            m_forms << QRegularExpression(expression(pattern));
        }
    }

    [[nodiscard]] std::optional<QDate> read(const QString& text) const {
        const QString typed = comparable(text, m_locale);
        for (const QString& written : {typed, plain(typed)}) {
            for (const QRegularExpression& form : m_forms) {
                const QRegularExpressionMatch match = form.match(written);
                const QDate date(year(match.captured(u"year"_s)), month(match.captured(u"month"_s)),
                                 match.captured(u"day"_s).toInt());
                if (date.isValid() && date.year() >= firstYear) {
                    return isWeekday(match.captured(u"weekday"_s), date) ? std::optional(date)
                                                                         : std::nullopt;
                }
            }
        }
        return std::nullopt;
    }

  private:
    /// A pattern of Qt as a regular expression. Between two fields stands what the pattern has
    /// there, a separator or a blank. The day of the week may be missing.
    [[nodiscard]] QString expression(const QString& pattern) const {
        static const QRegularExpression part(u"d+|M+|y+|(?:'[^']*'|[^dMy'])+"_s);
        QString result;
        QString before;            // what stands between the last field and the next
        bool afterWeekday = false; // which stands first, together with what follows it
        for (auto parts = part.globalMatch(pattern); parts.hasNext();) {
            const QString text = parts.next().captured();
            const QString field = fieldExpression(text);
            if (field.isEmpty()) {
                const QString words = comparable(QString(text).remove(u'\''), m_locale);
                before = u"(?:%1 ?[/\\-.] ?| )"_s.arg(
                    words.isEmpty() ? u""_s : u" ?%1 ?|"_s.arg(QRegularExpression::escape(words)));
                if (afterWeekday) {
                    result += std::exchange(before, {}) + u")?"_s;
                    afterWeekday = false;
                }
            } else if (!text.startsWith(u"ddd"_s)) {
                result += std::exchange(before, {}) + field;
            } else if (result.isEmpty()) {
                result = u"(?:"_s + field;
                afterWeekday = true;
            } else {
                result += u"(?:"_s + std::exchange(before, {}) + field + u")?"_s;
            }
        }
        return u"\\A"_s + result + (before.isEmpty() ? before : before + u'?') + u"\\z"_s;
    }

    /// Empty for what is no field.
    [[nodiscard]] QString fieldExpression(const QString& field) const {
        if (field.startsWith(u"ddd"_s)) {
            return u"(?<weekday>"_s + anyOf(m_weekdays) + u')';
        }
        switch (field.front().unicode()) {
        case u'd':
            return u"(?<day>[0-9]{1,2})[\\xB0\\xBA]?"_s; // "1°"
        case u'M':
            return u"(?<month>"_s + anyOf(m_months) + u"|[0-9]{1,2})"_s;
        case u'y':
            return field.size() == 1 ? u"(?<year>[0-9]{4}|[0-9]{2})"_s
                                     : u"(?<year>[0-9]{%1})"_s.arg(field.size());
        default:
            return {};
        }
    }

    [[nodiscard]] int month(const QString& field) const {
        const auto meanings = m_months.constFind(field);
        return meanings != m_months.cend() ? meanings->constFirst() : field.toInt();
    }

    [[nodiscard]] bool isWeekday(const QString& field, QDate date) const {
        return field.isEmpty() || m_weekdays.value(field).contains(date.dayOfWeek());
    }

    static int year(const QString& field) {
        const int number = field.toInt();
        return field.size() == 4 ? number : number < 30 ? 2000 + number : 1900 + number;
    }

    QLocale m_locale;
    Names m_months = namesOf(12, &QLocale::monthName, &QLocale::standaloneMonthName, m_locale);
    Names m_weekdays = namesOf(7, &QLocale::dayName, &QLocale::standaloneDayName, m_locale);
    QList<QRegularExpression> m_forms;
};

std::optional<QDate> recognise(const QString& text, const QLocale& locale) {
    static QHash<QLocale, DateReader> readers;
    auto reader = readers.find(locale);
    if (reader == readers.end()) {
        reader = readers.insert(locale, DateReader(locale));
    }
    return reader->read(text);
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
