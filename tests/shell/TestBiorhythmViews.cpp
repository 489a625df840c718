#include "shell/TestBiorhythmViews.h"

#include "shell/FrameFixture.h"

#include "export/FEspBio.h"
#include "guidance/FAbout.h"
#include "guidance/FOpt.h"
#include "toolkit/ColourSwatch.h"
#include "toolkit/ShowHelp.h"
#include "views/analysis/FStat.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrSetOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphSet.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>

namespace quor::test {

namespace {

constexpr std::array viewCommands{Command::mnuGrafico, Command::mnuStatoSettimanale,
                                  Command::mnuStatoOdierno, Command::mnuPrevisioni};

const QString& datePrompt() {
    static const QString text =
        u"Inserire la data di calcolo desiderata.\n"
        "Un trucco: per la data di oggi, inserire semplicemente la parola 'oggi'."_s;
    return text;
}

void expectDate(FrameFixture& fixture, const QString& typed) {
    fixture.dialogs.expectInput(u"Inserimento"_s, datePrompt(), typed);
}

void expectMoved(FrameFixture& fixture) {
    fixture.dialogs.expectBox(u"Operazione eseguita."_s,
                              u"La nuova data di calcolo è stata inserita."_s);
}

void openAll(FrameFixture& fixture) {
    for (const Command command : viewCommands) {
        fixture.frame.run(command);
    }
}

/// The dialog of a kind that is open in the frame; the ones before it are gone.
template<typename Dialog> Dialog* openDialog(const FrameFixture& fixture) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return fixture.frame.findChild<Dialog*>();
}

template<typename Dialog> void press(Dialog* dialog, const QString& button) {
    dialog->template findChild<QPushButton*>(button)->click();
}

} // namespace

void TestBiorhythmViews::viewsNeedABiorhythm() {
    FrameFixture fixture;
    for (const Command command : viewCommands) {
        const QString view = command == Command::mnuStatoSettimanale ? u"lo stato settimanale"_s
                             : command == Command::mnuStatoOdierno   ? u"lo stato"_s
                                                                     : u"il grafico"_s;
        fixture.dialogs.expectBox(
            u"Errore"_s,
            u"Nessuna data è ancora stata inserita. Scegliere Calcola dal menu Bioritmi per avere "_s +
                view + u" del bioritmo desiderato."_s);
        fixture.frame.run(command);
        QVERIFY(fixture.dialogs.finished());
    }
    QVERIFY(fixture.children().isEmpty());
}

void TestBiorhythmViews::chosenViewsOpenInOrder() {
    FrameFixture fixture;
    fixture.program.biorhythm.openWeekly = true;
    fixture.program.biorhythm.openStatistics = true;
    fixture.program.biorhythm.openForecasts = true;
    fixture.enter();
    QCOMPARE(fixture.children(),
             (QStringList{u"Grafico di Maria Rossi"_s, u"Grafico settimanale di Maria Rossi"_s,
                          u"Statistiche di Maria Rossi"_s, u"Previsioni di Maria Rossi"_s}));
    QCOMPARE(fixture.area()->currentSubWindow()->windowTitle(), u"Previsioni di Maria Rossi"_s);
}

/// Qt takes "[*]" in a title for a place of its own.
void TestBiorhythmViews::titlesShowTheNameAsTyped() {
    FrameFixture fixture;
    const QString name = u"Anna [*] \"[*][*]\" [*"_s;
    fixture.program.biorhythm.openGraph = false;
    fixture.enter(name);
    openAll(fixture);
    QStringList spoken;
    for (QMdiSubWindow* window : fixture.area()->subWindowList()) {
        spoken << QAccessible::queryAccessibleInterface(window)->text(QAccessible::Name);
    }
    QCOMPARE(spoken, (QStringList{u"Grafico di "_s + name, u"Stato settimanale di "_s + name,
                                  u"Stato del giorno di "_s + name, u"Previsioni di "_s + name}));
    const auto* graph = fixture.frame.findChild<FGrph*>();
    QVERIFY(graph->findChild<QWidget*>(u"Picture1"_s)
                ->accessibleDescription()
                .startsWith(spoken.constFirst()));
    fixture.area()->subWindowList().constFirst()->showMaximized();
    QCOMPARE(fixture.frame.windowHandle()->title(), u"Quor - [%1]"_s.arg(spoken.constFirst()));
    fixture.frame.run(Command::mnuEsporta);
    QCOMPARE(openDialog<FEspBio>(fixture)->windowHandle()->title(),
             u"Esporta bioritmo di "_s + name);
}

void TestBiorhythmViews::viewsFromTheMenu() {
    FrameFixture fixture;
    fixture.program.biorhythm.openGraph = false;
    fixture.enter();
    openAll(fixture);
    openAll(fixture); // each exists once
    QCOMPARE(fixture.children(),
             (QStringList{u"Grafico di Maria Rossi"_s, u"Stato settimanale di Maria Rossi"_s,
                          u"Stato del giorno di Maria Rossi"_s, u"Previsioni di Maria Rossi"_s}));
}

void TestBiorhythmViews::movingTheDate() {
    FrameFixture fixture;
    fixture.enter();
    openAll(fixture);
    const auto value = [&] {
        return fixture.frame.findChild<FStat*>()->findChild<QLineEdit*>(u"Text2"_s)->text();
    };
    QCOMPARE(value(), u"-7"_s);
    fixture.program.state.modified = false;
    expectDate(fixture, u"  OGGI "_s);
    expectMoved(fixture);
    fixture.frame.run(Command::mnuSpostaDataDiCalcolo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.children().isEmpty());
    QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate), QDate(2026, 11, 21));
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart,
             dayCountAtGraphStart(fixture.program.biorhythm));
    QCOMPARE(fixture.panels().at(2), u"Data in esame per il calcolo: 21/11/2026"_s);
    QVERIFY(fixture.program.state.modified);
    // Opened again, the view is computed for the new date: day 16402 is day 3 of the cycle.
    fixture.frame.run(Command::mnuStatoOdierno);
    QCOMPARE(value(), u"7"_s);

    // A date before the birth is a date.
    expectDate(fixture, u"1/1/1900"_s);
    expectMoved(fixture);
    fixture.frame.run(Command::mnuSpostaDataDiCalcolo);
    QVERIFY(fixture.program.biorhythm.daysAtGraphStart < 0);
}

void TestBiorhythmViews::movingTheDateToNonsense() {
    FrameFixture fixture;
    fixture.enter();
    fixture.program.state.modified = false;
    for (const QString& typed : {QString(), u"ieri"_s, u"31/02/2000"_s}) {
        expectDate(fixture, typed);
        fixture.dialogs.expectBox(u"Errore"_s,
                                  u"La data inserita non è valida. Nessuna operazione eseguita."_s);
        fixture.frame.run(Command::mnuSpostaDataDiCalcolo);
        QVERIFY(fixture.dialogs.finished());
        QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
        QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate), QDate(2004, 3, 15));
        QVERIFY(!fixture.program.state.modified);
    }
}

void TestBiorhythmViews::movingToTheSameDate() {
    FrameFixture fixture;
    fixture.enter();
    fixture.program.state.modified = false;
    expectDate(fixture, u"15/3/2004"_s);
    expectMoved(fixture);
    fixture.frame.run(Command::mnuSpostaDataDiCalcolo);
    QVERIFY(fixture.children().isEmpty());
    QVERIFY(fixture.program.state.modified);
}

void TestBiorhythmViews::optionsReachTheirViews() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuStatoSettimanale);
    fixture.program.state.modified = false;

    fixture.frame.run(Command::weeklyOptions);
    auto* weekly = openDialog<FGrSetOpt>(fixture);
    fixture.dialogs.expectColour(u"Scegli il colore"_s, QColor(Qt::yellow), QColor(Qt::cyan));
    weekly->findChild<ColourSwatch*>(u"Picture1_2"_s)->click();
    press(weekly, u"Command1"_s);
    QCOMPARE(fixture.program.biorhythm.weeklyColours[2], 0xFFFF00);
    QVERIFY(!fixture.program.state.modified); // colours of the week are no unsaved change
    const auto* legend = fixture.frame.findChild<FGrphSet*>()->findChild<QLabel*>(u"Label1_0"_s);
    QCOMPARE(legend->palette().color(QPalette::Window), QColor(Qt::cyan));

    fixture.frame.run(Command::graphOptions);
    auto* graph = openDialog<FGrOpt>(fixture);
    graph->findChild<QLineEdit*>(u"Text1"_s)->setText(u"5"_s);
    press(graph, u"Command1"_s);
    QVERIFY(fixture.program.state.modified);
    QCOMPARE(fixture.frame.findChild<FGrph*>()->findChild<QLineEdit*>(u"Text2"_s)->text(),
             u"mercoledì 10 marzo 2004"_s);
}

void TestBiorhythmViews::optionsWithoutViews() {
    FrameFixture fixture;
    fixture.program.biorhythm.openGraph = false;
    fixture.enter();
    fixture.frame.run(Command::mnuOpzioni);
    auto* options = fixture.frame.findChild<FOpt*>();
    QVERIFY(options != nullptr);
    press(options, u"Command1"_s);
    auto* graph = openDialog<FGrOpt>(fixture);
    QCOMPARE(graph->findChild<QLineEdit*>(u"Text1"_s)->text(), u"20"_s);
    graph->findChild<QLineEdit*>(u"Text1"_s)->setText(u"5"_s);
    press(graph, u"Command1"_s);
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{-15});
    press(options, u"Command2"_s);
    QVERIFY(openDialog<FGrSetOpt>(fixture) != nullptr);
    QCOMPARE(fixture.children(), QStringList{u"Opzioni"_s});
}

void TestBiorhythmViews::optionsOfAnOpenSystem() {
    FrameFixture fixture;
    fixture.program.state.systemOpen = true;
    fixture.frame.run(Command::graphOptions);
    auto* graph = openDialog<FGrOpt>(fixture);
    graph->findChild<QLineEdit*>(u"Text1"_s)->setText(u"5"_s);
    press(graph, u"Command1"_s);
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{-15});
    QVERIFY(fixture.program.state.modified);

    fixture.program.state.modified = false;
    fixture.frame.run(Command::weeklyOptions);
    auto* weekly = openDialog<FGrSetOpt>(fixture);
    press(weekly, u"Command2"_s);
    QVERIFY(!fixture.program.state.modified);
    fixture.frame.run(Command::weeklyOptions);
    press(openDialog<FGrSetOpt>(fixture), u"Command1"_s);
    QVERIFY(fixture.program.state.modified); // here they are: a system's data have changed
}

void TestBiorhythmViews::exportWithASystemOpen() {
    FrameFixture fixture;
    fixture.program.state.systemOpen = true;
    fixture.dialogs.expectBox(u"Non disponibile"_s, u"Attualmente non disponibile."_s);
    fixture.frame.run(Command::mnuEsporta);
    QVERIFY(fixture.dialogs.finished());
}

void TestBiorhythmViews::closingClosesEveryView() {
    FrameFixture fixture;
    fixture.enter();
    openAll(fixture);
    fixture.frame.run(Command::mnuOpzioni);
    QCOMPARE(fixture.children().size(), 5);
    fixture.frame.closeBiorhythm();
    QVERIFY(fixture.children().isEmpty());
}

void TestBiorhythmViews::aboutAndHelp() {
    FrameFixture fixture;
    QStringList asked;
    setHelpViewer([&](QWidget* /*window*/, const QString& path) { asked << path; });
    fixture.frame.run(Command::mnuHlpCompleto);
    fixture.frame.run(Command::mnuAbout);
    auto* about = openDialog<FAbout>(fixture);
    QVERIFY(about != nullptr);
    press(about, u"Command2"_s);
    setHelpViewer({});
    QCOMPARE(asked.size(), 2);
    QVERIFY(asked[0].endsWith(u"/Quor.chm"_s));
    QVERIFY(asked[1].endsWith(u"/Quor.chm::/contatti.html"_s));
}

} // namespace quor::test
