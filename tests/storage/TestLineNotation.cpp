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

void TestLineNotation::everyDayOfTheCalendar() {
    // Months of every length and the leap years of every rule, and the days that none has.
    for (const int year : {100, 400, 1600, 1900, 1981, 1999, 2000, 2004, 2100, 9999}) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const QByteArray text = QStringLiteral("#%1-%2-%3#")
                                            .arg(year, 4, 10, QChar(u'0'))
                                            .arg(month, 2, 10, QChar(u'0'))
                                            .arg(day, 2, 10, QChar(u'0'))
                                            .toLatin1();
                const QDate date(year, month, day);
                const auto read = parseDate(text);
                QCOMPARE(read, date.isValid() ? std::optional(toDateValue(date)) : std::nullopt);
                if (read) {
                    LineWriter writer;
                    writer.writeDate(*read);
                    QCOMPARE(writer.bytes(), text + "\r\n");
                }
            }
        }
    }
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

void TestLineNotation::linesAcrossBlocks() {
    // Lines of many lengths, so that the blocks that are read end anywhere in a line.
    QByteArray bytes;
    QStringList written;
    for (int i = 0; i < 3'000; ++i) {
        written << QString(i * 7 % 601, QChar(u'a' + i % 26)) + QString::number(i);
        bytes += '"' + written.back().toLatin1() + (i % 3 == 0 ? "\"\n" : "\"\r\n");
    }
    QVERIFY(bytes.size() > 6 * LineReader::maximumLine);
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    LineReader reader(device);
    for (const QString& expected : written) {
        QString text;
        reader.read(text);
        QCOMPARE(text, expected);
    }
}

void TestLineNotation::aSlowDevice() {
    // A byte at a time, as a pipe may give them.
    class Slow : public QIODevice {
      public:
        QByteArray rest = "\"Maria\"\r\n#1981-12-25#\r\n7";
        [[nodiscard]] bool isSequential() const override { return true; }

      protected:
        qint64 readData(char* data, qint64 /*size*/) override {
            if (rest.isEmpty()) {
                return -1;
            }
            *data = rest.front();
            rest.remove(0, 1);
            return 1;
        }
        qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }
    };
    Slow device;
    QVERIFY(device.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    LineReader reader(device);
    QString name;
    DateValue date = 0;
    int number = 0;
    reader.read(name);
    reader.read(date);
    reader.read(number);
    QCOMPARE(name, u"Maria"_s);
    QCOMPARE(toQDate(date), QDate(1981, 12, 25));
    QCOMPARE(number, 7);
}

void TestLineNotation::theLongestLine() {
    for (const qint64 length : {LineReader::maximumLine, LineReader::maximumLine + 1}) {
        for (const QByteArray end : {"\r\n", "\n", ""}) {
            const qint64 letters = length - 2 - end.size();
            QByteArray bytes = '"' + QByteArray(letters, 'x') + '"' + end;
            QCOMPARE(bytes.size(), length);
            bytes += end.isEmpty() ? "" : "7";
            QBuffer device(&bytes);
            QVERIFY(device.open(QIODevice::ReadOnly));
            LineReader reader(device);
            QString text = u"kept"_s;
            int number = 0;
            reader.read(text);
            reader.read(number);
            QCOMPARE(text.size(), length == LineReader::maximumLine ? letters : 4);
            QCOMPARE(number, end.isEmpty() ? 0 : 7);
        }
    }
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

void TestLineNotation::endlessLinesAreBounded() {
    // Lines that count, without an end: each could be kept, so they end some time.
    class Endless : public QIODevice {
      public:
        qint64 given = 0;
        [[nodiscard]] bool isSequential() const override { return true; }

      protected:
        qint64 readData(char* data, qint64 size) override {
            std::fill_n(data, size, 'x');
            data[0] = '"';
            data[size - 2] = '"';
            data[size - 1] = '\n';
            given += size;
            return size;
        }
        qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }
        [[nodiscard]] bool atEnd() const override { return false; }
    };
    Endless device;
    QVERIFY(device.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    LineReader reader(device);
    for (int line = 0; line < 10'000; ++line) {
        QString text;
        reader.read(text);
    }
    QVERIFY(device.given <= LineReader::maximumRead + 2 * LineReader::maximumLine);
    QString text = u"kept"_s;
    reader.read(text);
    QCOMPARE(text, u"kept"_s);
}

} // namespace quor::test
