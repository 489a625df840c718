#include "export/TestHtmlText.h"

#include "export/HtmlText.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestHtmlText::texts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("html");
    QTest::newRow("nothing") << QString() << QByteArray();
    QTest::newRow("of the page") << u"a&b <c> \"d\" 'e' &amp;"_s
                                 << QByteArray("a&amp;b &lt;c&gt; \"d\" 'e' &amp;amp;");
    QTest::newRow("control characters") << u"a\tb\x01\x7F"_s << QByteArray("a\tb\x01\x7F");
    QTest::newRow("named") << u"lunedì\u00A0ÿ ƒ€♦"_s
                           << QByteArray("luned&igrave;&nbsp;&yuml; &fnof;&euro;&diams;");
    QTest::newRow("by number") << u"Łódź ♧"_s << QByteArray("&#321;&oacute;d&#378; &#9831;");
    QTest::newRow("decomposed") << u"e\u0301"_s << QByteArray("e&#769;");
    QTest::newRow("beyond 16 bits")
        << u"\U0001f600\U0010FFFF"_s << QByteArray("&#128512;&#1114111;");
    QTest::newRow("halves of pairs")
        << u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0xDE00) + QChar(0xD83D)
        << QByteArray("a&#65533;b&#65533;&#65533;");
    QTest::newRow("no character of a page")
        << u"\u0080\u0085\u009F"_s << QByteArray("&#65533;&#65533;&#65533;");
}

void TestHtmlText::texts() {
    QFETCH(QString, text);
    QFETCH(QByteArray, html);
    QCOMPARE(htmlText(text), html);
}

void TestHtmlText::addresses_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("address");
    QTest::newRow("plain") << u"D'Amico-1 (a)_x.png"_s << QByteArray("D'Amico-1 (a)_x.png");
    QTest::newRow("all of ASCII that stays")
        << u"A ~`!@$^+={}[](),;:/\\|*"_s << QByteArray("A ~`!@$^+={}[](),;:/\\|*");
    QTest::newRow("beyond ASCII") << u"Niccolò 李\U0001f600.png"_s
                                  << QByteArray("Niccol%C3%B2 %E6%9D%8E%F0%9F%98%80.png");
    QTest::newRow("of an address") << u"50% #1?.png"_s << QByteArray("50%25 %231%3F.png");
    QTest::newRow("of the page") << u"a&b\"<c>"_s << QByteArray("a&amp;b%22%3Cc%3E");
    QTest::newRow("blank in front") << u"  a"_s << QByteArray("%20 a");
}

void TestHtmlText::addresses() {
    QFETCH(QString, name);
    QFETCH(QByteArray, address);
    QCOMPARE(htmlAddress(name), address);
}

} // namespace quor::test
