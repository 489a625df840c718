#include "core/TestDateEntry.h"

#include "core/Clock.h"
#include "core/DateEntry.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QLocale& italian() {
    static const QLocale locale(u"it_IT"_s);
    return locale;
}

} // namespace

void TestDateEntry::accepted_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    const auto row = [](const char* text, QDate date) {
        QTest::newRow(text) << QString::fromUtf8(text) << date;
    };
    row("25/12/1981", {1981, 12, 25});
    row("13 Nov 1945", {1945, 11, 13});
    row("05-06-85", {1985, 6, 5});
    row("5.6.1985", {1985, 6, 5});
    row("  25/12/1981  ", {1981, 12, 25});
    row("25 / 12 / 1981", {1981, 12, 25});
    row("25 12 1981", {1981, 12, 25});
    row("1 gennaio 2000", {2000, 1, 1});
    row("1 GENNAIO 2000", {2000, 1, 1});
    row("1-gen-00", {2000, 1, 1});
    row("13 nov. 1945", {1945, 11, 13});
    row("4 July 1976", {1976, 7, 4});
    row("July 4 1976", {1976, 7, 4});
    row("1981-12-25", {1981, 12, 25});
    row("1981/2/3", {1981, 2, 3});
    row("12/25/1981", {1981, 12, 25}); // no 25th month: day and month swapped
    row("01/01/29", {2029, 1, 1});
    row("01/01/30", {1930, 1, 1});
    row("01/01/99", {1999, 1, 1});
    row("01/01/0100", {100, 1, 1});
    row("31/12/9999", {9999, 12, 31});
    row("29/02/2000", {2000, 2, 29});
    row("martedì 8 maggio 1900", {1900, 5, 8});
    row("Martedi, 8 Maggio 1900", {1900, 5, 8});
    row("mar 8 maggio 1900", {1900, 5, 8});
    row("mar. 8 mag. 1900", {1900, 5, 8});
    row("mart 8/5/1900", {1900, 5, 8});
    row("Tuesday, May 8, 1900", {1900, 5, 8});
    row("mar 8 mar 2005", {2005, 3, 8});
    row("mar 8, 2005", {2005, 3, 8});
    row("nov 13, 1945", {1945, 11, 13});
    row("nov. 13,1945", {1945, 11, 13});
    row("13.nov.1945", {1945, 11, 13});
    row("1° gennaio 2000", {2000, 1, 1});
    row("1º gennaio 2000", {2000, 1, 1});
    row("1°/1/2000", {2000, 1, 1});
    row("30 sett 1979", {1979, 9, 30});
    row("30 SETT. 1979", {1979, 9, 30});
    row("sabato\u00A01 genn\u200E 2000", {2000, 1, 1});
}

void TestDateEntry::accepted() {
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QVERIFY(isDateText(text, italian()));
    QCOMPARE(toQDate(dateFromText(text, italian())), date);
}

void TestDateEntry::refused_data() {
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             "   ",
                             "oggi",
                             "31/02/2000",
                             "29/02/1900",
                             "25/12",
                             "25/12/1981/1",
                             "25/12/198",
                             "25/12/19811",
                             "0/1/2000",
                             "32/01/2000",
                             "13/13/2000",
                             "01/01/0099",
                             "01/01/10000",
                             "25 Foo 1981",
                             "quindici marzo 2004",
                             "25/12/1981 10:30",
                             "-5/-6/85",
                             "5,6,1985",
                             "//",
                             "lunedì 8 maggio 1900",
                             "Monday, May 8, 1900",
                             "sabato 05/06/2000", // 6 May, the swapped date, was one
                             "martedì",
                             "martedì 8 maggio",
                             "martedì mar 8 maggio 1900",
                             "8 maggio 1900 martedì",
                             ", 8 maggio 1900",
                             "8, maggio 1900",
                             "8 maggio 1900,",
                             "8maggio1900",
                             "8 ma 1900",
                             "8 maggioo 1900",
                             "°1 gennaio 2000",
                             "1°° gennaio 2000",
                             "8 maggio° 1900",
                             "1'1/1/2000",
                             "٨/٥/١٩٠٠",
                             "99999999999999999999/1/2000",
                             "1/1/2OOO",
                             "１/１/２０００"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
    QTest::newRow("a million signs") << QString(1'000'000, u'/');
    QTest::newRow("an embedded zero") << u"25/12/1981\0"_s + QChar(u'\0');
}

void TestDateEntry::refused() {
    QFETCH(QString, text);
    QVERIFY(!isDateText(text, italian()));
    QCOMPARE(dateFromText(text, italian()), 0.0);
}

void TestDateEntry::ordersOfOtherLocales_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("American") << u"en_US"_s << u"05-06-85"_s << QDate(1985, 5, 6);
    QTest::newRow("American, day first") << u"en_US"_s << u"25/12/1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Swedish") << u"sv_SE"_s << u"85-06-05"_s << QDate(1985, 6, 5);
    QTest::newRow("Swedish, day first") << u"sv_SE"_s << u"25-12-1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Italian name in Germany")
        << u"de_DE"_s << u"3 marzo 2004"_s << QDate(2004, 3, 3);
    QTest::newRow("German name") << u"de_DE"_s << u"3 März 2004"_s << QDate(2004, 3, 3);
    QTest::newRow("Swedish, American date")
        << u"sv_SE"_s << u"nov 13, 1945"_s << QDate(1945, 11, 13);
    QTest::newRow("Polish, nominative") << u"pl_PL"_s << u"8 maj 1900"_s << QDate(1900, 5, 8);
    QTest::newRow("Polish, genitive") << u"pl_PL"_s << u"8 maja 1900"_s << QDate(1900, 5, 8);
    QTest::newRow("Catalan") << u"ca_ES"_s << u"8 d'abril de 1900"_s << QDate(1900, 4, 8);
    QTest::newRow("Spanish") << u"es_ES"_s << u"8 de mayo 1900"_s << QDate(1900, 5, 8);
    QTest::newRow("French, without an accent")
        << u"fr_FR"_s << u"25 decembre 1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Turkish capitals") << u"tr_TR"_s << u"25 ARALIK 1981"_s << QDate(1981, 12, 25);
    QTest::newRow("Arabic digits") << u"ar_EG"_s << u"٨/٥/١٩٠٠"_s << QDate(1900, 5, 8);
    QTest::newRow("Yoruba, told apart by a dot")
        << u"yo_NG"_s << u"1 Ẹr 1903"_s << QDate(1903, 3, 1);
    QTest::newRow("none") << u"C"_s << u"05-06-85"_s << QDate(1985, 6, 5);
}

void TestDateEntry::ordersOfOtherLocales() {
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QVERIFY(isDateText(text, QLocale(locale)));
    QCOMPARE(toQDate(dateFromText(text, QLocale(locale))), date);
}

/// Under every locale that Qt has, for each month and each day of the week.
void TestDateEntry::shownDatesCanBeTypedBack() {
    QList<QDate> days{QDate(100, 1, 1), QDate(9999, 12, 31)};
    for (int month = 1; month <= 12; ++month) {
        days << QDate(1900 + 9 * month, month, 1 + 2 * month);
    }
    QStringList lost;
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    QVERIFY(locales.size() > 500);
    for (const QLocale& locale : locales) {
        for (const QDate& day : days) {
            const DateValue date = toDateValue(day);
            for (const QString& shown : {shortDate(date, locale), longDate(date, locale)}) {
                if (!isDateText(shown, locale) || dateFromText(shown, locale) != date) {
                    lost << locale.name() + u": "_s + shown;
                }
            }
        }
    }
    QCOMPARE(lost, QStringList());
}

void TestDateEntry::namesHaveManyForms_data() {
    QTest::addColumn<QString>("locale");
    for (const char* locale :
         {"it_IT", "en_US", "de_DE", "fr_CA", "sv_SE", "pl_PL", "cs_CZ", "ru_RU", "el_GR", "ca_ES",
          "fi_FI", "tr_TR", "hu_HU", "ja_JP", "th_TH", "ar_EG", "fa_IR", "bg_BG", "C"}) {
        QTest::newRow(locale) << QString::fromLatin1(locale);
    }
}

void TestDateEntry::namesHaveManyForms() {
    QFETCH(QString, locale);
    const QLocale language(locale);
    const auto formats = {QLocale::LongFormat, QLocale::ShortFormat};
    for (QDate day(1981, 1, 2); day.year() == 1981; day = day.addDays(17)) {
        QStringList texts;
        for (const auto format : formats) {
            const QString weekday = language.dayName(day.dayOfWeek(), format);
            for (const QString& month : {language.monthName(day.month(), format),
                                         language.standaloneMonthName(day.month(), format)}) {
                texts << u"%1 %2 1981"_s.arg(day.day()).arg(month)
                      << u"%1 %2, 1981"_s.arg(month).arg(day.day())
                      << u"%1 %2 %3 1981"_s.arg(weekday).arg(day.day()).arg(month)
                      << u"%1, %2 %3, 1981"_s.arg(weekday, month).arg(day.day())
                      << u"%1 1981-%2-%3"_s.arg(weekday).arg(day.month()).arg(day.day());
            }
        }
        for (const QString& text : texts) {
            for (const QString& typed :
                 {text, language.toLower(text), language.toUpper(text), u'\n' + text + u' '}) {
                QVERIFY2(isDateText(typed, language), qPrintable(typed));
                QCOMPARE(toQDate(dateFromText(typed, language)), day);
            }
        }
        const QString other = language.dayName(day.dayOfWeek() % 7 + 1);
        QVERIFY(!isDateText(other + u' ' + shortDate(toDateValue(day), language), language));
    }
}

void TestDateEntry::theWordOggi() {
    QVERIFY(isTodayKeyword(u"oggi"_s));
    QVERIFY(isTodayKeyword(u"  OGGI \t"_s));
    QVERIFY(isTodayKeyword(u"Oggi"_s));
    QVERIFY(!isTodayKeyword(u"ogg i"_s));
    QVERIFY(!isTodayKeyword(u"domani"_s));
    QVERIFY(!isTodayKeyword({}));
}

void TestDateEntry::dialogEntry() {
    const auto entry = acceptBiorhythmEntry(u"  Maria Rossi "_s, u"1981-12-25"_s, u" 2004-03-15"_s);
    QVERIFY(entry.has_value());
    QCOMPARE(entry->name, u"Maria Rossi"_s);
    QCOMPARE(toQDate(entry->birthDate), QDate(1981, 12, 25));
    QCOMPARE(toQDate(entry->calculationDate), QDate(2004, 3, 15));

    QVERIFY(!acceptBiorhythmEntry(u"   "_s, u"1981-12-25"_s, u"2004-03-15"_s));
    QVERIFY(!acceptBiorhythmEntry(u"Maria"_s, u"31/02/2000"_s, u"2004-03-15"_s));
    QVERIFY(!acceptBiorhythmEntry(u"Maria"_s, u"1981-12-25"_s, u"oggi"_s));
    // A birth after the calculation date is nobody's business.
    QVERIFY(acceptBiorhythmEntry(u"Maria"_s, u"2104-03-15"_s, u"1981-12-25"_s));
}

void TestDateEntry::calculationDateBox() {
    const FixedClock clock(QDate(2026, 11, 21));
    QCOMPARE(acceptCalculationDate(u"  OGGI "_s), std::optional(toDateValue(QDate(2026, 11, 21))));
    for (const auto& [text, date] : {std::pair{u"25 Dic 1981"_s, QDate(1981, 12, 25)},
                                     {u"13 Nov 1945"_s, QDate(1945, 11, 13)}}) {
        QCOMPARE(acceptCalculationDate(text), std::optional(toDateValue(date)));
    }
    QVERIFY(!acceptCalculationDate({}));
    QVERIFY(!acceptCalculationDate(u"ieri"_s));
}

} // namespace quor::test
