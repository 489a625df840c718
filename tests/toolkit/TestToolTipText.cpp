#include "toolkit/TestToolTipText.h"

#include "toolkit/ToolTipText.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestToolTipText::saysTheTextAsItIs_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << u"Bioritmo di Anna"_s;
    QTest::newRow("ampersand") << u"Anna & Lia"_s;
    QTest::newRow("quotation marks") << u"Luigi \"Gino\" Rossi"_s;
    QTest::newRow("greater") << u"Zoe > Ugo"_s;
    QTest::newRow("markup") << u"<b>Anna</b>"_s;
    QTest::newRow("entity") << u"Anna &amp; Lia"_s;
    QTest::newRow("spaces") << u"Anna   Maria"_s;
}

/// As a tooltip shows it: as markup when it looks like markup, else letter by letter.
void TestToolTipText::saysTheTextAsItIs() {
    QFETCH(QString, text);
    const QString tip = toolTipText(text);
    QVERIFY(Qt::mightBeRichText(tip)); // and so broken into lines
    QTextDocument shown;
    shown.setHtml(tip);
    QCOMPARE(shown.toPlainText(), text);
}

void TestToolTipText::nothingForNothing() {
    QCOMPARE(toolTipText({}), QString());
}

/// A path of the greatest length is said whole, a name of 64 KiB is not.
void TestToolTipText::notHigherThanTheScreen() {
    const auto said = [](const QString& text) {
        QTextDocument shown;
        shown.setHtml(toolTipText(text));
        return shown.toPlainText();
    };
    const QString path = QString(4096, u'x');
    QCOMPARE(said(path), path);
    QCOMPARE(said(QString(65'534, u'x')), QString(5000, u'x') + u'…');
    QCOMPARE(said(u'x' + u"😀"_s.repeated(5000)), u'x' + u"😀"_s.repeated(2499) + u'…');
}

} // namespace quor::test
