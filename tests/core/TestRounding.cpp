#include "core/TestRounding.h"

#include "core/Rounding.h"

#include <QTest>

#include <limits>

namespace quor::test {

void TestRounding::tiesGoToTheEvenNumber_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("rounded");
    QTest::newRow("0.5") << 0.5 << 0.0;
    QTest::newRow("1.5") << 1.5 << 2.0;
    QTest::newRow("2.5") << 2.5 << 2.0;
    QTest::newRow("3.5") << 3.5 << 4.0;
    QTest::newRow("-0.5") << -0.5 << 0.0;
    QTest::newRow("-1.5") << -1.5 << -2.0;
    QTest::newRow("-2.5") << -2.5 << -2.0;
    QTest::newRow("just below a tie") << 0.49999999999999994 << 0.0;
    QTest::newRow("just above a tie") << 2.5000000000000004 << 3.0;
    QTest::newRow("tiny and negative") << -1e-300 << 0.0;
    QTest::newRow("too large for a fraction") << 9007199254740993.0 << 9007199254740992.0;
}

void TestRounding::tiesGoToTheEvenNumber() {
    QFETCH(double, value);
    QFETCH(double, rounded);
    QCOMPARE(roundHalfEven(value), rounded);
}

void TestRounding::numbersBeyondTheTypeGiveNothing() {
    QCOMPARE(toInt16(32767.49), std::optional<std::int16_t>(32767));
    QCOMPARE(toInt16(-32768.5), std::optional<std::int16_t>(-32768));
    QCOMPARE(toInt16(32767.5), std::nullopt);
    QCOMPARE(toInt16(-32768.6), std::nullopt);
    QCOMPARE(toInt32(2147483647.0), std::optional<std::int32_t>(2147483647));
    QCOMPARE(toInt32(2147483647.5), std::nullopt);
    QCOMPARE(toInt32(std::numeric_limits<double>::infinity()), std::nullopt);
    QCOMPARE(toInt16(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

void TestRounding::pixelsStayWithinBounds() {
    QCOMPARE(toPixel(2.5), 2);
    QCOMPARE(toPixel(-3.5), -4);
    QCOMPARE(toPixel(1e300), 1 << 30);
    QCOMPARE(toPixel(-1e300), -(1 << 30));
    QCOMPARE(toPixel(std::numeric_limits<double>::quiet_NaN()), 0);
}

void TestRounding::tenScaleCoversTheWholeRange() {
    QCOMPARE(toTenScale(1.0), 10);
    QCOMPARE(toTenScale(-1.0), -10);
    QCOMPARE(toTenScale(0.25), 2);
    QCOMPARE(toTenScale(0.35), 4);
    QCOMPARE(toTenScale(-0.04), 0);
}

} // namespace quor::test
