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

} // namespace quor::test
