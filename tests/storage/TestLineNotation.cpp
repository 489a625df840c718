#include "storage/TestLineNotation.h"

#include "core/Dates.h"
#include "storage/Cp1252.h"
#include "storage/LineNotation.h"

#include "support/Hermetic.h"

#include <QBuffer>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestLineNotation::codePage_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("plain") << u"Maria Rossi"_s << QByteArray("Maria Rossi");
    QTest::newRow("accents") << u"Niccolò Però"_s << QByteArray("Niccol\xF2 Per\xF2");
    QTest::newRow("euro and quotes") << u"€ “x” ’"_s << QByteArray("\x80 \x93x\x94 \x92");
    QTest::newRow("lacking") << u"Дмитрий"_s << QByteArray("???????");
    QTest::newRow("two units, one character") << u"a\U0001F600b"_s << QByteArray("a?b");
    QTest::newRow("composed first") << u"e\u0301"_s << QByteArray("\xE9");
    QTest::newRow("half a character") << QString(QChar(0xD800)) << QByteArray("?");
}

void TestLineNotation::codePage() {
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(toCp1252(text), bytes);
}

void TestLineNotation::everyByteSurvives() {
    QByteArray all;
    for (int code = 0; code < 256; ++code) {
        all.append(static_cast<char>(code));
    }
    QCOMPARE(fromCp1252(all).size(), 256);
    QCOMPARE(toCp1252(fromCp1252(all)), all);
    QCOMPARE(fromCp1252("\x80\x9C\xE8"), u"€œè"_s);
}

void TestLineNotation::writtenValues() {
    LineWriter writer;
    writer.writeString(u"Rossi, Maria"_s);
    writer.writeDate(toDateValue(QDate(1981, 12, 25)));
    writer.writeDate(toDateValue(QDate(100, 1, 2)));
    writer.writeDate(0);
    writer.writeInteger(-19);
    writer.writeInteger(16711680);
    QCOMPARE(writer.bytes(), QByteArray("\"Rossi, Maria\"\r\n#1981-12-25#\r\n#0100-01-02#\r\n"
                                        "#1899-12-30#\r\n-19\r\n16711680\r\n"));
}

void TestLineNotation::quotesAndLineEndsInStrings() {
    LineWriter writer;
    writer.writeString(u"Anna \"la Rossa\"\r\nBianchi"_s);
    QCOMPARE(writer.bytes(), QByteArray("\"Anna 'la Rossa'  Bianchi\"\r\n"));
    QCOMPARE(parseString(writer.bytes()), std::optional(u"Anna 'la Rossa'  Bianchi"_s));
}

void TestLineNotation::strings_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* line, bool valid, const QString& value) {
        QTest::newRow(line) << QByteArray(line) << valid << value;
    };
    row("\"Maria\"", true, u"Maria"_s);
    row("  \"Maria\"  ", true, u"Maria"_s);
    row("\"\"", true, {});
    row("\"  a  \"", true, u"  a  "_s);
    row("\"Anna \"la Rossa\" Bianchi\"", true, u"Anna "_s); // a quote ends the string
    row("Maria", false, {});
    QTest::newRow("control characters") << QByteArray("\"A\0B\rC\"", 7) << true << u"A B C"_s;
    row("\"Maria", false, {});
    row("", false, {});
    row("\"", false, {});
}

void TestLineNotation::strings() {
    QFETCH(QByteArray, line);
    QFETCH(bool, valid);
    QFETCH(QString, value);
    QCOMPARE(parseString(line), valid ? std::optional(value) : std::nullopt);
}

void TestLineNotation::dates_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QDate>("date"); // invalid: no value
    const auto row = [](const char* line, QDate date) {
        QTest::newRow(line) << QByteArray(line) << date;
    };
    row("#1981-12-25#", {1981, 12, 25});
    row(" #1981-12-25# ", {1981, 12, 25});
    row("#1981-12-25 10:30:00#", {1981, 12, 25});
    row("#1981-12-25 23:59#", {1981, 12, 25});
    row("#0100-01-01#", {100, 1, 1});
    row("#9999-12-31#", {9999, 12, 31});
    row("#0099-12-31#", {});
    row("#1981-13-25#", {});
    row("#1981-02-29#", {});
    row("#1981-12-25", {});
    row("1981-12-25", {});
    row("#81-12-25#", {});
    row("#1981-12-25 25:00#", {});
    row("#1981-12-25x#", {});
    row("#", {});
    row("##", {});
    row("", {});
}

void TestLineNotation::dates() {
    QFETCH(QByteArray, line);
    QFETCH(QDate, date);
    QCOMPARE(parseDate(line), date.isValid() ? std::optional(toDateValue(date)) : std::nullopt);
}

void TestLineNotation::integers_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("value");
    const auto row = [](const char* line, bool valid, qint64 value) {
        QTest::newRow(line) << QByteArray(line) << valid << value;
    };
    row("0", true, 0);
    row("-19", true, -19);
    row("+7", true, 7);
    row(" 255 ", true, 255);
    row("16711680", true, 16711680);
    row("007", true, 7);
    row("", false, 0);
    row("-", false, 0);
    row("+-7", false, 0);
    row("12a", false, 0);
    row("1.5", false, 0);
    row("\"2\"", false, 0);
    row("99999999999999999999", false, 0);
}

void TestLineNotation::integers() {
    QFETCH(QByteArray, line);
    QFETCH(bool, valid);
    QFETCH(qint64, value);
    const auto number = parseInteger(line);
    QCOMPARE(number.has_value(), valid);
    QCOMPARE(number.value_or(0), value);
}

void TestLineNotation::linesEndEitherWay() {
    QByteArray bytes("1\r\n2\n3\r\n\r\n5");
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    LineReader reader(device);
    std::array<int, 6> values{-1, -1, -1, -1, -1, -1};
    for (int& value : values) {
        reader.read(value);
    }
    QCOMPARE(values, (std::array<int, 6>{1, 2, 3, -1, 5, -1}));
}

void TestLineNotation::aLongLineIsNoValue() {
    QByteArray bytes = '"' + QByteArray(3 * LineReader::maximumLine, 'x') + "\"\r\n\"next\"\r\n";
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    LineReader reader(device);
    QString first = u"kept"_s;
    QString second;
    reader.read(first);
    reader.read(second);
    QCOMPARE(first, u"kept"_s);
    QCOMPARE(second, u"next"_s);
}

void TestLineNotation::readingIsBounded() {
    // An endless device: without a bound, reading one line would never end.
    class Endless : public QIODevice {
      public:
        qint64 given = 0;
        [[nodiscard]] bool isSequential() const override { return true; }

      protected:
        qint64 readData(char* data, qint64 size) override {
            std::fill_n(data, size, 'x');
            given += size;
            return size;
        }
        qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }
        [[nodiscard]] bool atEnd() const override { return false; }
    };
    Endless device;
    QVERIFY(device.open(QIODevice::ReadOnly));
    LineReader reader(device);
    for (int line = 0; line < 20; ++line) {
        int value = 7;
        reader.read(value);
        QCOMPARE(value, 7);
    }
    QVERIFY(device.given <= 2 * LineReader::maximumSkipped);
}

} // namespace quor::test
