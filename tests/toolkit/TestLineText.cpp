#include "toolkit/TestLineText.h"

#include "toolkit/LineText.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestLineText::ordinaryTextIsShownAsItIs() {
    for (const QString& text : {QString(), u"Grafico di Maria Rossi"_s, QString(1000, u'y')}) {
        QCOMPARE(lineText(text), text);
    }
}

void TestLineText::longTextIsCut() {
    QCOMPARE(lineText(QString(1001, u'y')), QString(1000, u'y') + u'…');
    QCOMPARE(lineText(QString(65'534, u'y')), QString(1000, u'y') + u'…');
}

void TestLineText::noPairIsCut() {
    const QString pairs = u"😀"_s.repeated(600);
    QCOMPARE(lineText(pairs), u"😀"_s.repeated(500) + u'…');
    QCOMPARE(lineText(u'y' + pairs), u'y' + u"😀"_s.repeated(499) + u'…');
}

void TestLineText::longTextKeepsItsEnd() {
    const QString whole = QString(1000, u'y');
    QCOMPARE(lineEnds(whole), whole);
    QCOMPARE(lineEnds(u'a' + QString(65'534, u'y') + u'z'),
             u'a' + QString(499, u'y') + u'…' + QString(499, u'y') + u'z');
    const QString pairs = u"😀"_s.repeated(600);
    QCOMPARE(lineEnds(u'y' + pairs + u'z'),
             u'y' + u"😀"_s.repeated(249) + u'…' + u"😀"_s.repeated(249) + u'z');
}

} // namespace quor::test
