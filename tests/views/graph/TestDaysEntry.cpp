#include "views/graph/TestDaysEntry.h"

#include "views/graph/DaysEntry.h"

#include "support/Hermetic.h"

namespace quor::test {

void TestDaysEntry::numbers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    const auto row = [](const char* text, double number) {
        QTest::newRow(text) << QString::fromUtf8(text) << number;
    };
    row("20", 20);
    row("  20  ", 20);
    row("+5", 5);
    row("-5", -5);
    row("20.5", 20.5);
    row(".5", 0.5);
    row("20,5", 20);
    row("12 giorni", 12);
    row("1e2", 100);
    row("giorni", 0);
    row("inf", 0);
    row("nan", 0);
    row("-inf", 0);
    row("+-5", 0);
    row("--5", 0);
    row("", 0);
    row("-", 0);
    row("1e-400", 0);
}

void TestDaysEntry::numbers() {
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(leadingNumber(text), number);
}

void TestDaysEntry::days_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("adjust");
    QTest::addColumn<bool>("tooSmall");
    const auto row = [](const char* text, int adjust, bool tooSmall) {
        QTest::newRow(text) << QString::fromUtf8(text) << adjust << tooSmall;
    };
    row("20", 0, false);
    row("1", -19, false);
    row("0", -19, true);
    row("0.5", -19, true);
    row("-5", -19, true);
    row("venti", -19, true);
    row("", -19, true);
    row("20.5", 0, false);
    row("21.5", 2, false);
    row("32767", 32747, false);
    row("32767.4", 32747, false);
    row("-32748", -19, true);
}

void TestDaysEntry::days() {
    QFETCH(QString, text);
    QFETCH(int, adjust);
    QFETCH(bool, tooSmall);
    const auto entry = parseDays(text);
    QVERIFY(entry.has_value());
    QCOMPARE(int{entry->graphDaysAdjust}, adjust);
    QCOMPARE(entry->tooSmall, tooSmall);
}

void TestDaysEntry::overflow_data() {
    QTest::addColumn<QString>("text");
    // -32749 fits 16 bits, but its difference with 20 does not.
    for (const char* text : {"32768", "32767.5", "100000", "-32749", "-40000", "1e400", "-1e400"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void TestDaysEntry::overflow() {
    QFETCH(QString, text);
    QVERIFY(!parseDays(text).has_value());
}

} // namespace quor::test
