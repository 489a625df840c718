#include "report/TestReportStream.h"

#include "core/Dates.h"
#include "report/ReportStream.h"

#include <QBuffer>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QByteArray text(double value) {
    std::array<char, longestNumber> room{};
    return {room.data(), writeNumber(room.data(), value) - room.data()};
}

QByteArray isoText(QDate day) {
    std::array<char, 10> room{};
    return {room.data(), writeIsoDate(room.data(), dayNumber(toDateValue(day))) - room.data()};
}

/// A device that takes some bytes and no more.
class FullDevice : public QIODevice {
  public:
    explicit FullDevice(qint64 room)
        : m_room(room) {
        open(WriteOnly | Unbuffered);
    }
    int calls = 0;

  protected:
    qint64 readData(char* /*to*/, qint64 /*length*/) override { return -1; }
    qint64 writeData(const char* /*from*/, qint64 length) override {
        ++calls;
        const qint64 taken = std::min(length, m_room);
        m_room -= taken;
        return taken;
    }

  private:
    qint64 m_room;
};

} // namespace

void TestReportStream::numbersReadBack() {
    QCOMPARE(text(0), "0");
    QCOMPARE(text(-1), "-1");
    QCOMPARE(text(0.1), "0.10000000000000001");
    QCOMPARE(text(0.5), "0.5");
    QCOMPARE(text(3.2310891488651735e-15), "3.2310891488651735e-15");
    QCOMPARE(text(-std::numeric_limits<double>::min()), "-2.2250738585072014e-308"); // the longest
    std::mt19937_64 random(6); // NOLINT: the same in every run
    std::uniform_real_distribution<double> values(-1, 1);
    for (int i = 0; i < 10'000; ++i) {
        const double value = values(random);
        QVERIFY(text(value).toDouble() == value);
    }
}

void TestReportStream::isoDates() {
    QCOMPARE(isoText(QDate(1899, 12, 30)), "1899-12-30");
    QCOMPARE(isoText(QDate(100, 1, 1)), "0100-01-01");
    QCOMPARE(isoText(QDate(2024, 2, 29)), "2024-02-29");
    QCOMPARE(isoText(QDate(9999, 12, 31)), "9999-12-31");
    QCOMPARE(lastIsoDay(), dayNumber(toDateValue(QDate(9999, 12, 31))));
    for (QDate day(1580, 1, 1); day < QDate(1610, 1, 1); day = day.addDays(1)) {
        QCOMPARE(isoText(day), day.toString(Qt::ISODate).toLatin1());
    }
}

void TestReportStream::piecesArriveInOrder() {
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    ReportStream stream(buffer);
    QByteArray expected;
    for (int i = 0; i < 30'000; ++i) {
        stream.writeInteger(-i);
        stream.write(',');
        stream.writeNumber(0.25);
        stream.write(QByteArray(i % 700, 'x'));
        expected += QByteArray::number(-i) + ",0.25" + QByteArray(i % 700, 'x');
    }
    const QByteArray large(1'000'000, 'y'); // larger than what is held back
    stream.write(large);
    expected += large;
    QVERIFY(stream.flush());
    QVERIFY(buffer.data() == expected);
}

void TestReportStream::aFailureStays() {
    FullDevice device(100'000);
    ReportStream stream(device);
    stream.write(QByteArray(100'000, 'x'));
    QVERIFY(!stream.hasFailed());
    stream.write(QByteArray(100'000, 'x'));
    QVERIFY(stream.hasFailed());
    const int calls = device.calls;
    stream.write(QByteArray(1'000'000, 'x'));
    QVERIFY(!stream.flush());
    QVERIFY(!stream.flush());
    QCOMPARE(device.calls, calls); // it is left alone
}

} // namespace quor::test
