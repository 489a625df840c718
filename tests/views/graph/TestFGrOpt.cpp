#include "views/graph/TestFGrOpt.h"

#include "toolkit/ColourSwatch.h"
#include "toolkit/ShowHelp.h"
#include "views/graph/FGrOpt.h"

#include "support/Hermetic.h"
#include "support/ScriptedDialogs.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A dialog as its opener makes it, and what it said.
class Fixture {
  public:
    explicit Fixture(const GraphOptions& options = defaultGraphOptions()) {
        resetToStartUp(program);
        dialog = new FGrOpt(program, nullptr);
        dialog->initialise(options);
        QObject::connect(dialog, &FGrOpt::GraphOptionsChanged, dialog,
                         [this](const GraphOptions& changed) { told.append(changed); });
        dialog->open();
    }
    ~Fixture() { delete dialog; }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    void click(const QString& button) const {
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    [[nodiscard]] QLineEdit* days() const { return dialog->findChild<QLineEdit*>(u"Text1"_s); }
    [[nodiscard]] QComboBox* position() const { return dialog->findChild<QComboBox*>(u"Combo1"_s); }
    [[nodiscard]] ColourSwatch* swatch(int index) const {
        return dialog->findChild<ColourSwatch*>(u"Picture1_%1"_s.arg(index));
    }
    /// The dialog has closed and is gone.
    [[nodiscard]] bool isGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return dialog.isNull();
    }

    Program program;
    QPointer<FGrOpt> dialog;
    QList<GraphOptions> told;
};

GraphOptions otherOptions() {
    return {.colours = {1, 2, 3, 4}, .graphDaysAdjust = 5, .dayIndexPosition = 1};
}

} // namespace

void TestFGrOpt::showsWhatItIsGiven() {
    const Fixture fixture(otherOptions());
    QCOMPARE(fixture.days()->text(), u"25"_s);
    QCOMPARE(fixture.position()->currentText(), u"Alto"_s);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(fixture.swatch(i)->colour(), i + 1);
    }
    QStringList positions;
    for (int i = 0; i < fixture.position()->count(); ++i) {
        positions << fixture.position()->itemText(i);
    }
    QCOMPARE(positions, (QStringList{u"Nessuno"_s, u"Alto"_s, u"Centro"_s, u"Basso"_s}));
    QVERIFY(fixture.dialog->isModal());
}

void TestFGrOpt::okStoresAndTells() {
    Fixture fixture;
    fixture.days()->setText(u"30"_s);
    fixture.position()->setFocus();
    QTest::keyClick(fixture.position(), Qt::Key_Down);
    fixture.click(u"Command1"_s);
    QVERIFY(fixture.isGone());

    GraphOptions expected = defaultGraphOptions();
    expected.graphDaysAdjust = 10;
    expected.dayIndexPosition = 3;
    QCOMPARE(fixture.told, QList{expected});
    QCOMPARE(graphOptions(fixture.program.biorhythm), expected);
    QVERIFY(fixture.program.state.modified);
}

void TestFGrOpt::cancelAndCloseDoNeither() {
    for (const bool byButton : {true, false}) {
        Fixture fixture(otherOptions());
        fixture.days()->setText(u"30"_s);
        if (byButton) {
            fixture.click(u"Command2"_s);
        } else {
            fixture.dialog->close();
        }
        QVERIFY(fixture.isGone());
        QVERIFY(fixture.told.isEmpty());
        QCOMPARE(graphOptions(fixture.program.biorhythm), defaultGraphOptions());
        QVERIFY(!fixture.program.state.modified);
    }
}

void TestFGrOpt::defaultsThenCancel() {
    Fixture fixture(otherOptions());
    setGraphOptions(fixture.program.biorhythm, otherOptions());
    fixture.click(u"Command3"_s);
    QCOMPARE(fixture.days()->text(), u"20"_s);
    QCOMPARE(fixture.position()->currentText(), u"Centro"_s);
    QCOMPARE(fixture.swatch(0)->colour(), 0xFF0000);
    fixture.click(u"Command2"_s);
    QVERIFY(fixture.told.isEmpty());
    QCOMPARE(graphOptions(fixture.program.biorhythm), otherOptions());
    QVERIFY(!fixture.program.state.modified);
}

void TestFGrOpt::defaultsThenOk() {
    Fixture fixture(otherOptions());
    setGraphOptions(fixture.program.biorhythm, otherOptions());
    fixture.click(u"Command3"_s);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.told, QList{defaultGraphOptions()});
    QCOMPARE(graphOptions(fixture.program.biorhythm), defaultGraphOptions());
}

void TestFGrOpt::tooSmallBecomesOne_data() {
    QTest::addColumn<QString>("text");
    for (const char* text : {"0", "-5", "venti", "", "0.5"}) {
        QTest::newRow(text) << QString::fromLatin1(text);
    }
}

void TestFGrOpt::tooSmallBecomesOne() {
    QFETCH(QString, text);
    Fixture fixture;
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Quor"_s, u"Valore di giorni attorno alla data di calcolo troppo piccola.\n"
                                 "Il valore sarà reimpostato ad 1"_s);
    fixture.days()->setText(text);
    fixture.click(u"Command1"_s);
    QVERIFY(dialogs.finished());
    QVERIFY(fixture.isGone());
    QCOMPARE(fixture.told.size(), 1);
    QCOMPARE(fixture.told[0].graphDaysAdjust, std::int16_t{-19});
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{-19});
}

void TestFGrOpt::oneIsAccepted() {
    Fixture fixture;
    const ScriptedDialogs dialogs; // no box is due
    fixture.days()->setText(u"1"_s);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{-19});
}

void TestFGrOpt::ties_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("adjust");
    QTest::newRow("20.5") << u"20.5"_s << 0;
    QTest::newRow("21.5") << u"21.5"_s << 2;
}

void TestFGrOpt::ties() {
    QFETCH(QString, text);
    QFETCH(int, adjust);
    Fixture fixture;
    fixture.days()->setText(text);
    fixture.click(u"Command1"_s);
    QCOMPARE(int{fixture.program.biorhythm.graphDaysAdjust}, adjust);
}

void TestFGrOpt::overflowKeepsTheDialog_data() {
    QTest::addColumn<QString>("text");
    for (const char* text : {"32768", "-32749", "1e10"}) {
        QTest::newRow(text) << QString::fromLatin1(text);
    }
}

void TestFGrOpt::overflowKeepsTheDialog() {
    QFETCH(QString, text);
    Fixture fixture;
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Errore"_s, u"Overflow\nScrivere un numero di giorni da 1 a 32767."_s);
    fixture.days()->setText(text);
    fixture.click(u"Command1"_s);
    QVERIFY(dialogs.finished());
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.dialog->isVisible());
    QCOMPARE(fixture.days()->text(), text);
    QVERIFY(fixture.told.isEmpty());
    QVERIFY(!fixture.program.state.modified);
}

void TestFGrOpt::withASystemOpen() {
    Fixture fixture(otherOptions());
    fixture.program.state.systemOpen = true;
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.told, QList{otherOptions()});
    QCOMPARE(graphOptions(fixture.program.biorhythm), defaultGraphOptions());
    QVERIFY(!fixture.program.state.modified);
}

void TestFGrOpt::swatches() {
    Fixture fixture;
    ScriptedDialogs dialogs;
    dialogs.expectColour(u"Scegli il colore"_s, QColor(Qt::blue), QColor(0x11, 0x22, 0x33));
    for (int i = 0; i < 3; ++i) {
        dialogs.expectColour(u"Scegli il colore"_s, QColor(Qt::yellow), std::nullopt);
    }
    QTest::mouseClick(fixture.swatch(0), Qt::LeftButton);
    fixture.swatch(3)->setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(fixture.swatch(3), key); // and Enter does not press "Ok"
    }
    QVERIFY(fixture.told.isEmpty());
    QVERIFY(dialogs.finished());
    QCOMPARE(fixture.swatch(0)->colour(), 0x332211);
    QCOMPARE(fixture.swatch(3)->colour(), 0x00FFFF);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.told.at(0).colours,
             (std::array<Colour, 4>{0x332211, 0x0000FF, 0x00FF00, 0x00FFFF}));
}

void TestFGrOpt::anUnknownPosition() {
    GraphOptions options = defaultGraphOptions();
    options.dayIndexPosition = 200;
    Fixture fixture(options);
    QCOMPARE(fixture.position()->currentIndex(), -1);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.told, QList{options});
}

void TestFGrOpt::helpButton() {
    Fixture fixture;
    QString asked;
    setHelpViewer([&](QWidget* /*window*/, const QString& path) { asked = path; });
    fixture.click(u"Command4"_s);
    setHelpViewer({});
    QVERIFY(asked.endsWith(u"/Quor.chm::/2person.html"_s));
    QVERIFY(fixture.dialog->isVisible());
}

} // namespace quor::test
