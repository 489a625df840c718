#include "views/graph/TestFGrSetOpt.h"

#include "support/ScriptedDialogs.h"
#include "toolkit/ColourSwatch.h"
#include "toolkit/DrawingPainter.h"
#include "toolkit/ShowHelp.h"
#include "views/graph/FGrSetOpt.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr WeeklyColours stored{0x111111, 0x222222, 0x333333};
constexpr WeeklyColours given{0x102030, 0xE0D0C0, 0x8000FF};

/// An open dialog that was given other colours than the record holds.
struct Fixture {
    Fixture() {
        resetToStartUp(program);
        setWeeklyColours(program.biorhythm, stored);
        dialog = new FGrSetOpt(program, nullptr);
        QObject::connect(dialog, &FGrSetOpt::WeeklyOptionsChanged, dialog,
                         [this](const WeeklyColours& colours) { told.push_back(colours); });
        dialog->initialise(given);
        dialog->open();
    }
    ~Fixture() { delete dialog; }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    void click(const QString& name) const {
        QTest::mouseClick(dialog->findChild<QAbstractButton*>(name), Qt::LeftButton);
    }

    [[nodiscard]] WeeklyColours shown() const {
        WeeklyColours colours{};
        int i = 0;
        for (Colour& colour : colours) {
            colour = dialog->findChild<ColourSwatch*>(u"Picture1_%1"_s.arg(i))->colour();
            ++i;
        }
        return colours;
    }

    [[nodiscard]] bool nothingHappened() const {
        return told.empty() && weeklyColours(program.biorhythm) == stored &&
               !program.state.modified;
    }

    Program program;
    QPointer<FGrSetOpt> dialog;
    std::vector<WeeklyColours> told;
};

} // namespace

void TestFGrSetOpt::controls() {
    const Fixture fixture;
    const auto button = [&](const QString& name) {
        return fixture.dialog->findChild<QPushButton*>(name)->text();
    };
    QCOMPARE(button(u"Command1"_s), u"&Ok"_s);
    QCOMPARE(button(u"Command2"_s), u"&Cancel"_s);
    QCOMPARE(button(u"Command3"_s), u"&Default"_s);
    QCOMPARE(button(u"Command4"_s), u"&?"_s);
    QStringList labels;
    for (int i = 0; i < 3; ++i) {
        const QWidget* swatch = fixture.dialog->findChild<QWidget*>(u"Picture1_%1"_s.arg(i));
        for (const QLabel* label : fixture.dialog->findChildren<QLabel*>()) {
            if (label->buddy() == swatch) {
                labels << label->text();
                QCOMPARE(swatch->accessibleName(), label->text());
            }
        }
    }
    QCOMPARE(labels.join(u','), u"Giotni critici,Giorni stabili,Giorni ottimi"_s);
    QVERIFY(fixture.dialog->isModal());
}

void TestFGrSetOpt::showsWhatItIsGiven() {
    const Fixture fixture;
    QCOMPARE(fixture.shown(), given);
}

void TestFGrSetOpt::okStoresAndTells() {
    Fixture fixture;
    fixture.program.biorhythm.weeklyColours[3] = 0x0A0B0C;
    fixture.click(u"Command1"_s);
    QCOMPARE(weeklyColours(fixture.program.biorhythm), given);
    QCOMPARE(fixture.program.biorhythm.weeklyColours[3], 0x0A0B0C);
    QCOMPARE(fixture.told, std::vector{given});
    QTRY_VERIFY(fixture.dialog.isNull());
    QCOMPARE(fixture.told.size(), std::size_t{1});
}

void TestFGrSetOpt::okLeavesModifiedAsItIs() {
    for (const bool modified : {false, true}) {
        Fixture fixture;
        fixture.program.state.modified = modified;
        fixture.click(u"Command1"_s);
        QCOMPARE(fixture.told.size(), std::size_t{1});
        QCOMPARE(fixture.program.state.modified, modified);
    }
}

void TestFGrSetOpt::okWithASystemOpenOnlyTells() {
    Fixture fixture;
    fixture.program.state.systemOpen = true;
    fixture.click(u"Command1"_s);
    QCOMPARE(weeklyColours(fixture.program.biorhythm), stored);
    QCOMPARE(fixture.told, std::vector{given});
}

void TestFGrSetOpt::cancelDoesNothing() {
    Fixture fixture;
    fixture.click(u"Command2"_s);
    QTRY_VERIFY(fixture.dialog.isNull());
    QVERIFY(fixture.nothingHappened());
}

void TestFGrSetOpt::closeBoxDoesNothing() {
    Fixture fixture;
    fixture.dialog->close();
    QTRY_VERIFY(fixture.dialog.isNull());
    QVERIFY(fixture.nothingHappened());
}

void TestFGrSetOpt::escapeDoesNothing() {
    Fixture fixture;
    QTest::keyClick(fixture.dialog, Qt::Key_Escape);
    QTRY_VERIFY(fixture.dialog.isNull());
    QVERIFY(fixture.nothingHappened());
}

void TestFGrSetOpt::chosenColourIsKept_data() {
    QTest::addColumn<int>("index");
    QTest::newRow("critical") << 0;
    QTest::newRow("stable") << 1;
    QTest::newRow("optimal") << 2;
}

void TestFGrSetOpt::chosenColourIsKept() {
    QFETCH(int, index);
    Fixture fixture;
    WeeklyColours expected = given;
    Colour& changed = expected.at(static_cast<std::size_t>(index));
    ScriptedDialogs script;
    script.expectColour(u"Scegli il colore"_s, toQColor(changed), QColor(1, 2, 3));
    fixture.click(u"Picture1_%1"_s.arg(index));
    QVERIFY(script.finished());
    changed = 0x030201;
    QCOMPARE(fixture.shown(), expected);
    // Chosen is not stored yet.
    QVERIFY(fixture.nothingHappened());
    fixture.click(u"Command1"_s);
    QCOMPARE(weeklyColours(fixture.program.biorhythm), expected);
    QCOMPARE(fixture.told, std::vector{expected});
}

void TestFGrSetOpt::cancelledColourDialogChangesNothing() {
    Fixture fixture;
    ScriptedDialogs script;
    script.expectColour(u"Scegli il colore"_s, toQColor(given[1]), std::nullopt);
    fixture.click(u"Picture1_1"_s);
    QVERIFY(script.finished());
    QCOMPARE(fixture.shown(), given);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.told, std::vector{given});
}

void TestFGrSetOpt::defaultShowsTheDefaults() {
    Fixture fixture;
    fixture.click(u"Command3"_s);
    QCOMPARE(fixture.shown(), (WeeklyColours{0x0000FF, 0x00FF00, 0x00FFFF}));
    QVERIFY(fixture.dialog->isVisible());
    QVERIFY(fixture.nothingHappened());
}

void TestFGrSetOpt::defaultThenCancelChangesNothing() {
    Fixture fixture;
    fixture.click(u"Command3"_s);
    fixture.click(u"Command2"_s);
    QTRY_VERIFY(fixture.dialog.isNull());
    QVERIFY(fixture.nothingHappened());
}

void TestFGrSetOpt::defaultThenOkStores() {
    Fixture fixture;
    fixture.click(u"Command3"_s);
    fixture.click(u"Command1"_s);
    QCOMPARE(weeklyColours(fixture.program.biorhythm),
             (WeeklyColours{0x0000FF, 0x00FF00, 0x00FFFF}));
    QCOMPARE(fixture.told, std::vector{defaultWeeklyColours()});
}

void TestFGrSetOpt::asksForItsHelp() {
    const Fixture fixture;
    QStringList pages;
    setHelpViewer([&](QWidget* /*window*/, const QString& path) { pages << path; });
    fixture.click(u"Command4"_s);
    setHelpViewer({});
    QCOMPARE(pages, QStringList(helpPath(u"2persset.html"_s)));
    QVERIFY(fixture.dialog->isVisible());
}

} // namespace quor::test
