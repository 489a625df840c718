#include "views/analysis/TestFStat.h"

#include "views/analysis/AnalysisFixture.h"
#include "views/analysis/FStat.h"
#include "views/analysis/StateBars.h"

#include <QLabel>
#include <QLayout>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestFStat::knownPerson() {
    Program program = personAt(0);
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    const FStat window(program);
    QCOMPARE(stateTexts(window), (QStringList{u"-7"_s, u"-8"_s, u"-4"_s, u"-6"_s}));
    QCOMPARE(arrowNames(window),
             (QStringList{u"Stato fisico in salita"_s, u"Stato emotivo in salita"_s,
                          u"Stato intellettivo in salita"_s, u"Media in salita"_s}));
    QCOMPARE(window.findChild<StateBars*>()->accessibleDescription(),
             u"Fisico -7, in salita; Emotivo -8, in salita; Intellettivo -4, in salita; "
             "Media -6, in salita"_s);
}

void TestFStat::zeroCrossing() {
    const FStat window(personAt(0));
    QCOMPARE(stateTexts(window), (QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
    for (const QString& name : arrowNames(window)) {
        QVERIFY(name.endsWith(u" in salita"_s));
    }
    // No plus sign before a positive value, and the emotional maximum.
    const FStat later(personAt(7));
    QCOMPARE(stateTexts(later), (QStringList{u"9"_s, u"10"_s, u"10"_s, u"10"_s}));
    const FStat before(personAt(-7));
    QCOMPARE(stateTexts(before), (QStringList{u"-9"_s, u"-10"_s, u"-10"_s, u"-10"_s}));
}

void TestFStat::boxesAreReadOnlyAndCopyable() {
    const FStat window(personAt(8116));
    verifyReadOnlyAndCopyable(window, {u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s});
}

void TestFStat::barsWearTheCurveColours() {
    Program program = personAt(7);
    program.biorhythm.curveColours = {0x102030, 0x405060, 0x708090, 0xA0B0C0, 0};
    FStat window(program);
    window.resize(window.sizeHint());
    const QImage image = window.grab().toImage();
    for (const QRgb colour : {0x302010U, 0x605040U, 0x908070U, 0xC0B0A0U}) {
        bool found = false;
        for (int y = 0; y < image.height() && !found; ++y) {
            for (int x = 0; x < image.width() && !found; ++x) {
                found = (image.pixel(x, y) & 0xFFFFFF) == colour;
            }
        }
        QVERIFY(found);
    }
}

void TestFStat::staysAsItWasMade() {
    Program program = personAt(8116);
    const FStat first(program);
    program = personAt(7);
    const FStat second(program);
    QCOMPARE(stateTexts(first), (QStringList{u"-7"_s, u"-8"_s, u"-4"_s, u"-6"_s}));
    QCOMPARE(stateTexts(second), (QStringList{u"9"_s, u"10"_s, u"10"_s, u"10"_s}));
}

void TestFStat::titleAndObjectName() {
    const FStat window(personAt(1));
    QCOMPARE(window.windowTitle(), u"Stato Odierno"_s);
    QCOMPARE(window.objectName(), u"FStat"_s);
}

void TestFStat::closes() {
    verifyCloses(new FStat(personAt(1)));
}

void TestFStat::helpOpensItsTopic() {
    verifyHelp(FStat(personAt(1)), u"2stato.html"_s);
}

void TestFStat::tabOrder() {
    QCOMPARE(test::tabOrder(FStat(personAt(1)), u"Text2"_s),
             (QStringList{u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Bars"_s, u"Command1"_s,
                          u"Command2"_s}));
}

void TestFStat::labelsBelongToTheirBoxes() {
    const FStat window(personAt(1));
    QMap<QString, QString> labels;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        QVERIFY(label->buddy());
        labels[label->buddy()->objectName()] = label->text();
    }
    QCOMPARE(labels, (QMap<QString, QString>{{u"Text2"_s, u"Stato fisico:"_s},
                                             {u"Text3"_s, u"Stato emotivo:"_s},
                                             {u"Text4"_s, u"Stato intellettivo:"_s},
                                             {u"Text5"_s, u"Media:"_s}}));
}

void TestFStat::fitsItsTexts() {
    FStat window(personAt(-7));
    window.resize(window.minimumSizeHint());
    window.layout()->activate();
    for (const auto* box : window.findChildren<QLineEdit*>()) {
        const int text = box->fontMetrics().horizontalAdvance(u"-10"_s);
        QVERIFY(box->width() >= text + 4);
        QVERIFY(box->width() < 4 * text); // a small box for a small number
    }
}

} // namespace quor::test
