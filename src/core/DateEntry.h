#pragma once

#include "core/Dates.h"

#include <QLocale>
#include <QString>

#include <optional>

/// Dates as they are typed.
///
/// A date is a day, a month and a year in the order of the locale (failing that, with day and month
/// swapped), or a four-digit year, a month and a day, or a long date as the locale writes it. The
/// fields are separated by slashes, hyphens, dots or blanks; blanks around the whole do not matter.
/// A comma may stand before the year and after the day of the week. The month is a number or a
/// name; the day of the week, a name, may stand first and has to be that of the date. Names are
/// those of the locale's language, Italian and English, in every form that Qt knows, in any letter
/// case, with or without accents, and may be cut after three letters as long as they are told
/// apart. Digits are Western or the locale's; after the day "°" may stand. A year has four digits,
/// or two: 00..29 are 2000..2029 and 30..99 are 1930..1999. Years from 100 to 9999 count.
///
/// Whatever `shortDate` and `longDate` give for a date is read as that date, under every locale.
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
