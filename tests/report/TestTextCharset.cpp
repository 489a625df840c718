#include "report/TestTextCharset.h"

#include "report/TextCharset.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestTextCharset::localesOfTerminals_data() {
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<int>("charset");
    QTest::newRow("UTF-8") << QByteArray("C.UTF-8") << static_cast<int>(TextCharset::utf8);
    QTest::newRow("C") << QByteArray("C") << static_cast<int>(TextCharset::ascii);
    QTest::newRow("POSIX") << QByteArray("POSIX") << static_cast<int>(TextCharset::ascii);
    QTest::newRow("not installed") << QByteArray("xx_XX") << static_cast<int>(TextCharset::ascii);
    QTest::newRow("not installed, UTF-8")
        << QByteArray("xx_XX.utf8@euro") << static_cast<int>(TextCharset::utf8);
    QTest::newRow("not installed, ISO 8859-1")
        << QByteArray("xx_XX.ISO-8859-1") << static_cast<int>(TextCharset::latin1);
}

void TestTextCharset::localesOfTerminals() {
    QFETCH(QByteArray, locale);
    QFETCH(int, charset);
    const QByteArray before = qgetenv("LC_ALL");
    const bool wasSet = qEnvironmentVariableIsSet("LC_ALL");
    qputenv("LC_ALL", locale);
    const TextCharset found = terminalCharset();
    wasSet ? qputenv("LC_ALL", before) : qunsetenv("LC_ALL");
    QCOMPARE(static_cast<int>(found), charset);
}

void TestTextCharset::encoded() {
    const QString text = u"Niccolò ↑ ½ ﬁ 😀"_s;
    QCOMPARE(encodeText(text, TextCharset::utf8), text.toUtf8());
    QCOMPARE(encodeText(text, TextCharset::latin1), "Niccol\xF2 ? \xBD f ?");
    QCOMPARE(encodeText(text, TextCharset::ascii), "Niccolo ? 1 f ?");
    QCOMPARE(encodeText(u"venerdì, è così"_s, TextCharset::ascii), "venerdi, e cosi");
    QCOMPARE(encodeText({}, TextCharset::ascii), "");
}

} // namespace quor::test
