// Any text as a typed date, under locales of every order of fields: what is recognised is a date in
// range, its short and its long form are recognised as the same date, and not with the name of
// another day of the week.
//
// The first byte is the locale's digit, or '*' for all of them, one after another; the text
// follows.

#include "Check.h"
#include "core/DateEntry.h"

#include <array>

namespace {

using quor::fuzz::check;

void checkUnder(const QLocale& locale, const QString& text) {
    if (!quor::isDateText(text, locale)) {
        check(quor::dateFromText(text, locale) == 0, "a text that is no date gives none");
        return;
    }
    const quor::DateValue date = quor::dateFromText(text, locale);
    const QDate day = quor::toQDate(date);
    check(day.isValid() && day.year() >= 100 && day.year() <= 9999, "the year is in range");
    const QString shortText = quor::shortDate(date, locale);
    for (const QString& shown : {shortText, quor::longDate(date, locale)}) {
        check(quor::isDateText(shown, locale), "a shown date can be typed back");
        check(quor::dateFromText(shown, locale) == date, "and is the same date");
    }
    const QString weekday = locale.dayName(day.dayOfWeek());
    const QString other = locale.dayName(day.dayOfWeek() % 7 + 1);
    check(quor::dateFromText(weekday + u' ' + shortText, locale) == date, "its weekday may stand");
    check(!quor::isDateText(other + u' ' + shortText, locale), "another weekday may not");
    check(quor::isDateText(u' ' + text + u' ', locale), "blanks around a date do not matter");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array locales{QLocale(QLocale::Italian, QLocale::Italy),
                                    QLocale(QLocale::English, QLocale::UnitedStates),
                                    QLocale(QLocale::German, QLocale::Germany),
                                    QLocale(QLocale::Swedish, QLocale::Sweden),
                                    QLocale(QLocale::Japanese, QLocale::Japan),
                                    QLocale(QLocale::Arabic, QLocale::Egypt),
                                    QLocale(QLocale::Persian, QLocale::Iran),
                                    QLocale(QLocale::Hungarian, QLocale::Hungary),
                                    QLocale(QLocale::Bulgarian, QLocale::Bulgaria),
                                    QLocale::c()};
    if (size == 0) {
        return 0;
    }
    const QString text = quor::fuzz::textOf(data + 1, size - 1);
    if (data[0] != '*') {
        checkUnder(locales[static_cast<unsigned>(data[0] - '0') % locales.size()], text);
        return 0;
    }
    for (const QLocale& locale : locales) {
        checkUnder(locale, text);
    }
    return 0;
}
