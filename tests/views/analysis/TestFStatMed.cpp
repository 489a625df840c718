#include "views/analysis/TestFStatMed.h"

#include "views/analysis/AnalysisFixture.h"
#include "views/analysis/FStat.h"
#include "views/analysis/FStatMed.h"
#include "views/analysis/StateBars.h"

#include <QLabel>

#include <numeric>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QImage picture(DayStateWindow& window) {
    window.resize(window.sizeHint());
    return window.grab().toImage();
}

QString barTexts(const QWidget& window) {
    return window.findChild<StateBars*>()->accessibleDescription();
}

} // namespace

void TestFStatMed::oneMemberLooksLikeThePerson() {
    for (const std::int32_t dayCount : {8116, 0, 7, 14, 371, -1, -7, -9999}) {
        FStat person(personAt(dayCount));
        FStatMed system(systemAt({dayCount}));
        QCOMPARE(stateTexts(system), stateTexts(person));
        QCOMPARE(arrowNames(system), arrowNames(person));
        QCOMPARE(barTexts(system), barTexts(person));
        QCOMPARE(picture(system), picture(person));
    }
}

void TestFStatMed::knownSystem() {
    const FStatMed window(systemAt({7, 5768}));
    const DayState state = systemDayState(std::array{7, 5768});
    QStringList shown;
    QStringList trends;
    for (const StateItem item : stateItems) {
        shown << QString::number(shownValue(state.value(item)));
        trends << (state.trend(item) == Trend::rising ? u" in salita"_s : u" in discesa"_s);
    }
    QCOMPARE(stateTexts(window), shown);
    const QStringList arrows = arrowNames(window);
    for (int i = 0; i < 4; ++i) {
        QVERIFY2(arrows[i].endsWith(trends[i]), qPrintable(arrows[i]));
    }
}

void TestFStatMed::halfAnEmotionalPeriodApart() {
    for (std::int32_t dayCount = -15; dayCount < 45; ++dayCount) {
        QCOMPARE(boxText(FStatMed(systemAt({dayCount, dayCount + 14})), u"Text3"_s), u"0"_s);
    }
}

void TestFStatMed::orderOfMembersDoesNotShow() {
    const FStatMed forwards(systemAt({100, 8116, -40, 12'345}));
    const FStatMed backwards(systemAt({12'345, -40, 8116, 100}));
    QCOMPARE(stateTexts(forwards), stateTexts(backwards));
    QCOMPARE(arrowNames(forwards), arrowNames(backwards));
}

void TestFStatMed::membersBeyondTheCountDoNotCount() {
    // As after the last of them was removed.
    Program program = systemAt({8116, 7});
    program.state.systemCount = 1;
    QCOMPARE(stateTexts(FStatMed(program)), stateTexts(FStat(personAt(8116))));
}

void TestFStatMed::largestSystem() {
    std::vector<std::int32_t> dayCounts(mostMembers);
    std::iota(dayCounts.begin(), dayCounts.end(), -5000);
    const FStatMed spread(systemAt(dayCounts));
    QCOMPARE(stateTexts(spread), (QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
    std::ranges::fill(dayCounts, 7);
    QCOMPARE(stateTexts(FStatMed(systemAt(dayCounts))), stateTexts(FStat(personAt(7))));
}

void TestFStatMed::systemWithoutMembers() {
    Program program = systemAt({7});
    program.state.systemCount = 0;
    const FStatMed window(program);
    QCOMPARE(stateTexts(window), (QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
}

void TestFStatMed::staysAsItWasMade() {
    Program program = systemAt({8116});
    const FStatMed first(program);
    program.state.systemMembers.push_back({.name = u"Altro"_s, .birthDate = 0});
    program.state.systemCount = 2;
    program.biorhythm.calculationDate += 10;
    const FStatMed second(program);
    QCOMPARE(stateTexts(first), stateTexts(FStat(personAt(8116))));
    QVERIFY(stateTexts(second) != stateTexts(first));
}

void TestFStatMed::cursorIsRestored() {
    const FStatMed window(systemAt({8116, 7}));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestFStatMed::titleAndObjectName() {
    const FStatMed window(systemAt({1}));
    QCOMPARE(window.windowTitle(), u"Statistiche di sistema"_s);
    QCOMPARE(window.objectName(), u"FStatMed"_s);
}

void TestFStatMed::labels() {
    const FStatMed window(systemAt({1}));
    QMap<QString, QString> labels;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        QVERIFY(label->buddy());
        labels[label->buddy()->objectName()] = label->text();
    }
    QCOMPARE(labels, (QMap<QString, QString>{{u"Text2"_s, u"Stato fisico:"_s},
                                             {u"Text3"_s, u"Stato emotivo:"_s},
                                             {u"Text4"_s, u"Stato intellettivo:"_s},
                                             {u"Text5"_s, u"Media:"_s}}));
    verifyReadOnlyAndCopyable(window, {u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s});
}

void TestFStatMed::closes() {
    verifyCloses(new FStatMed(systemAt({1})));
}

void TestFStatMed::helpOpensItsTopic() {
    verifyHelp(FStatMed(systemAt({1})), u"2stato.html"_s);
}

void TestFStatMed::tabOrder() {
    QCOMPARE(test::tabOrder(FStatMed(systemAt({1})), u"Text2"_s),
             (QStringList{u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Bars"_s, u"Command1"_s,
                          u"Command2"_s}));
}

} // namespace quor::test
