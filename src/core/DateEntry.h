#pragma once

#include "core/Dates.h"

#include <QLocale>
#include <QString>

#include <optional>

/// Dates as they are typed.
///
/// A date is a day, a month and a year in the order of the locale (failing that, with day and month
/// swapped, then in day-month-year order), or a four-digit year, a month and a day. The fields are
/// separated by slashes, hyphens, dots or blanks; blanks around the whole do not matter. The month
/// is a number, or a name or an abbreviation in the locale's language, in Italian or in English, in
/// any letter case. A year has four digits, or two: 00..29 are 2000..2029 and 30..99 are
/// 1930..1999. Years from 100 to 9999 count.
namespace quor {

[[nodiscard]] bool isDateText(const QString& text, const QLocale& locale = QLocale());

/// The date that a text for which `isDateText` is true stands for; 0 for any other text.
[[nodiscard]] DateValue dateFromText(const QString& text, const QLocale& locale = QLocale());

/// The text is the word "oggi", in any letter case, with or without blanks around it.
[[nodiscard]] bool isTodayKeyword(const QString& text);

/// What the dialog for a new biorhythm holds when it is accepted.
struct BiorhythmEntry {
    QString name; ///< without blanks around it
    DateValue birthDate = 0;
    DateValue calculationDate = 0;
};

/// The three texts of the dialog for a new biorhythm. Nothing unless both dates are recognised and
/// the name has more than blanks. The word "oggi" is no date here.
[[nodiscard]] std::optional<BiorhythmEntry>
acceptBiorhythmEntry(const QString& name, const QString& birthDate, const QString& calculationDate);

/// The text of the box that moves the calculation date, where the word "oggi" is today. Nothing
/// when it is no date.
[[nodiscard]] std::optional<DateValue> acceptCalculationDate(const QString& text);

} // namespace quor
