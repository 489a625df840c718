#include "shell/TestMDIForm1.h"

#include "shell/FrameFixture.h"

#include "core/Clock.h"
#include "shell/FIns.h"
#include "shell/MDIForm1.h"
#include "storage/BiorhythmFile.h"
#include "toolkit/SettingsStore.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrph.h"

#include "support/Hermetic.h"
#include "support/ScriptedDialogs.h"

#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTextDocument>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QStringList& systemCommands() {
    static const QStringList names{u"mnuSalvaSistema"_s, u"mnuSalvaSistemaConNome"_s,
                                   u"mnuChiudiSistema"_s, u"mnuOpzioniSistema"_s,
                                   u"mnuEsportaSistema"_s};
    return names;
}

const QStringList& biorhythmCommands() {
    static const QStringList names{
        u"mnuSalvaBioritmo"_s,       u"mnuSalvaConNome"_s, u"mnuChiudiBioritmo"_s,
        u"mnuAnteprimaDiStampa"_s,   u"mnuStampa"_s,       u"mnuGrafico"_s,
        u"mnuStatoSettimanale"_s,    u"mnuStatoOdierno"_s, u"mnuPrevisioni"_s,
        u"mnuSpostaDataDiCalcolo"_s, u"mnuOpzioni"_s,      u"mnuEsporta"_s};
    return names;
}

} // namespace

void TestMDIForm1::startUp() {
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    const FrameFixture fixture;
    QCOMPARE(fixture.program.state.userFolder, fixture.folder.filePath(u"UserFiles"_s));
    QCOMPARE(fixture.program.state.exportFolder,
             fixture.folder.filePath(u"UserFiles/Esportazioni"_s));
    QVERIFY(QDir(fixture.program.state.exportFolder).exists());
    QCOMPARE(fixture.program.state.fastStart, u"FALSE"_s);
    QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate), QDate(2026, 11, 21));
    QCOMPARE(fixture.frame.windowTitle(), u"Quor"_s);
    QCOMPARE(fixture.panels(), (QStringList{{}, {}, {}}));
    QVERIFY(fixture.children().isEmpty());
}

void TestMDIForm1::menusAndToolbar() {
    const FrameFixture fixture;
    QStringList menus;
    for (const QAction* action : fixture.frame.menuBar()->actions()) {
        menus << action->text();
    }
    QCOMPARE(menus,
             (QStringList{u"&File sistemi"_s, u"File &bioritmi"_s, u"&Finestre"_s, u"&Help"_s}));

    const auto* toolbar = fixture.frame.findChild<QToolBar*>(u"Toolbar1"_s);
    QCOMPARE(toolbar->actions().size(), 20);
    for (const ToolInfo& info : toolTable()) {
        const QAction* tool = toolbar->actions().at(info.position - 1);
        QCOMPARE(tool->isSeparator(), info.isSeparator());
        if (!info.isSeparator()) {
            QCOMPARE(tool->objectName(), QString::fromLatin1(info.key));
            QCOMPARE(tool->toolTip(), QString::fromUtf16(info.toolTip));
            QVERIFY(!tool->icon().isNull());
        }
    }
    QStringList dropDown;
    for (const QAction* action : toolbar->actions().at(13)->menu()->actions()) {
        dropDown << action->text();
    }
    QCOMPARE(dropDown, (QStringList{u"Opzioni Grafico"_s, u"Opzioni Grafico Settimanale"_s}));

    QStringList popup;
    for (const QAction* action : fixture.frame.findChild<QMenu*>(u"mnuPopUp"_s)->actions()) {
        popup << action->objectName();
    }
    QCOMPARE(popup, (QStringList{u"mnuPopGiorno"_s, u"mnuPopBar1"_s, u"mnuPopFis"_s, u"mnuPopEm"_s,
                                 u"mnuPopInt"_s, u"mnuPopMed"_s, u"mnuPopNota"_s, u"mnuPopBar2"_s,
                                 u"mnuPopOpt"_s}));
}

void TestMDIForm1::whatStartsDisabled() {
    const FrameFixture fixture;
    QCOMPARE(fixture.disabledTools(), (QList<int>{3, 7, 9, 10, 11, 12, 14, 16, 18}));
    QCOMPARE(fixture.disabledCommands(), systemCommands() + biorhythmCommands());
}

void TestMDIForm1::applyingABiorhythm() {
    FrameFixture fixture;
    fixture.enter();
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 8116 - 20);
    QCOMPARE(fixture.panels(),
             (QStringList{u"Nome: Maria Rossi"_s, u"Data di nascita: 25/12/1981"_s,
                          u"Data in esame per il calcolo: 15/03/2004"_s}));
    QCOMPARE(fixture.disabledTools(), QList<int>{3});
    QCOMPARE(fixture.disabledCommands(), systemCommands());
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
}

void TestMDIForm1::theTipOfAPanelSaysItsText() {
    FrameFixture fixture;
    const QString name = u"Anna & \"Lia\""_s;
    fixture.enter(name);
    const QString tip = fixture.frame.statusBar()->findChild<QLabel*>()->toolTip();
    QVERIFY(Qt::mightBeRichText(tip));
    QTextDocument shown;
    shown.setHtml(tip);
    QCOMPARE(shown.toPlainText(), u"Nome: "_s + name);
}

void TestMDIForm1::noViewChosen() {
    FrameFixture fixture;
    fixture.program.biorhythm.openGraph = false;
    fixture.enter();
    QCOMPARE(fixture.panels().constFirst(), u"Nome: Maria Rossi"_s);
    QVERIFY(fixture.children().isEmpty());
}

void TestMDIForm1::openingAFile() {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        FrameFixture fixture;
        const QString path = fixture.write(u"Anna"_s);
        fixture.expectFile(FileMode::open, path);
        fixture.expectUpdate(answer);
        fixture.frame.run(Command::mnuApriBioritmo);
        QVERIFY(fixture.dialogs.finished());
        const bool moved = answer == Answer::yes;
        QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate),
                 moved ? QDate(2026, 11, 21) : QDate(2004, 3, 15));
        QCOMPARE(fixture.program.state.modified, moved);
        QCOMPARE(fixture.program.state.filePath, path);
        QCOMPARE(fixture.panels().constFirst(), u"Nome: Anna"_s);
        QCOMPARE(fixture.children(), QStringList{u"Grafico di Anna"_s});
    }
    FrameFixture fixture;
    fixture.expectFile(FileMode::open, {}); // cancelled
    fixture.frame.run(Command::mnuApriBioritmo);
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(fixture.program.state.filePath.isEmpty());
}

void TestMDIForm1::openingAFileOfToday() {
    FrameFixture fixture;
    fixture.frame.loadBiorhythmFile(fixture.write(u"Anna"_s, {2026, 11, 21})); // no question is due
    QVERIFY(!fixture.program.state.modified);
    QCOMPARE(fixture.panels().at(2), u"Data in esame per il calcolo: 21/11/2026"_s);
}

void TestMDIForm1::commandLineText() {
    FrameFixture fixture;
    const QString path = fixture.write(u"Anna Bo"_s);
    const QString capitals = fixture.folder.filePath(u"x.BIO"_s);
    QVERIFY(QFile::copy(path, capitals));
    fixture.expectUpdate(Answer::no);
    fixture.frame.start({.mode = StartMode::commandLineText, .text = u'"' + capitals + u'"'});
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Anna Bo"_s);
    QCOMPARE(fixture.program.state.filePath, capitals);
}

void TestMDIForm1::commandLineWithoutQuotes() {
    FrameFixture fixture;
    fixture.frame.start({.mode = StartMode::commandLineText, .text = fixture.write(u"Anna"_s)});
    QVERIFY(!fixture.program.biorhythm.isPresent());
    // Another ending is ignored.
    const QString path = fixture.folder.filePath(u"x.txt"_s);
    QVERIFY(QFile::copy(fixture.write(u"Anna"_s), path));
    fixture.frame.start({.mode = StartMode::commandLineText, .text = u'"' + path + u'"'});
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(fixture.children().isEmpty());
}

void TestMDIForm1::openOption() {
    FrameFixture fixture;
    const QString missing = fixture.folder.filePath(u"missing.bio"_s);
    fixture.dialogs.expectBox(u"Errore"_s, u"Il file \"%1\" non esiste."_s.arg(missing));
    fixture.frame.start({.mode = StartMode::openFile, .text = missing});
    QVERIFY(fixture.dialogs.finished());
    fixture.expectUpdate(Answer::no);
    fixture.frame.start({.mode = StartMode::openFile, .text = fixture.write(u"Anna"_s)});
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Anna"_s});
}

void TestMDIForm1::savingAs() {
    FrameFixture fixture;
    fixture.enter();
    const QString path = fixture.folder.filePath(u"saved.bio"_s);
    // Without a known file the plain command asks too, and it does not learn the path.
    for (const Command command : {Command::mnuSalvaConNome, Command::mnuSalvaBioritmo}) {
        fixture.program.state.modified = true;
        fixture.expectFile(FileMode::save, path);
        fixture.expectSaved();
        fixture.frame.run(command);
        QVERIFY(fixture.dialogs.finished());
        QVERIFY(!fixture.program.state.modified);
        QVERIFY(fixture.program.state.filePath.isEmpty());
        QVERIFY(QFile::exists(path));
        QVERIFY(QFile::remove(path));
    }
    fixture.expectFile(FileMode::save, {}); // cancelled
    fixture.program.state.modified = true;
    fixture.frame.run(Command::mnuSalvaConNome);
    QVERIFY(fixture.program.state.modified);
    // A failure says the same, but the changes still count as unsaved.
    fixture.expectFile(FileMode::save, fixture.folder.filePath(u"no/folder.bio"_s));
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaConNome);
    QVERIFY(fixture.program.state.modified);
}

void TestMDIForm1::savingToTheKnownFile() {
    FrameFixture fixture;
    const QString path = fixture.write(u"Maria Rossi"_s);
    fixture.expectUpdate(Answer::yes);
    fixture.frame.loadBiorhythmFile(path);
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.modified);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("#2026-11-21#"));
}

void TestMDIForm1::aFailedSaveIsReported() {
    FrameFixture fixture;
    fixture.enter();
    fixture.program.state.filePath = fixture.folder.path(); // a folder cannot be overwritten
    fixture.dialogs.expectBox(u"Errore"_s,
                              u"Errore imprevisto: il file \"%1\" non è stato salvato.\n"
                              "Filename refers to a directory"_s.arg(fixture.folder.path()));
    fixture.frame.run(Command::mnuSalvaBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.modified);
}

void TestMDIForm1::closingWithUnsavedChanges() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::yes);
    fixture.expectFile(FileMode::save, fixture.folder.filePath(u"saved.bio"_s));
    fixture.expectSaved();
    fixture.frame.run(Command::mnuChiudiBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(QFile::exists(fixture.folder.filePath(u"saved.bio"_s)));

    fixture.enter();
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.frame.run(Command::mnuChiudiBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.biorhythm.isPresent());

    fixture.enter();
    fixture.program.state.modified = false;
    fixture.expectClosing(Answer::yes); // and nothing more
    fixture.frame.run(Command::mnuChiudiBioritmo);
    QVERIFY(!fixture.program.biorhythm.isPresent());
}

void TestMDIForm1::closingIsRefused() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::no);
    fixture.frame.run(Command::mnuChiudiBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
    QVERIFY(fixture.program.state.modified);
}

void TestMDIForm1::aCancelledSaveKeepsTheBiorhythm() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::yes);
    fixture.expectFile(FileMode::save, {});
    fixture.frame.run(Command::mnuEsci2);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.biorhythm.isPresent());
    QCOMPARE(fixture.ended.count(), 0);
}

void TestMDIForm1::openingClosesFirst() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::no);
    fixture.frame.run(Command::mnuApriBioritmo); // no file dialog
    QVERIFY(fixture.dialogs.finished());
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.expectFile(FileMode::open, fixture.write(u"Anna"_s));
    fixture.expectUpdate(Answer::no);
    fixture.frame.run(Command::mnuApriBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Anna"_s});
}

void TestMDIForm1::newClosesFirst() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::no);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.frame.findChild<FIns*>() == nullptr);
    fixture.program.state.modified = false;
    fixture.expectClosing(Answer::yes);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.dialogs.finished());
    auto* dialog = fixture.frame.findChild<FIns*>();
    QVERIFY(dialog != nullptr && dialog->isVisible());
    // Closing has emptied the calculation date: the dialog proposes today.
    QCOMPARE(dialog->findChild<QLineEdit*>(u"Text2"_s)->text(), u"21/11/2026"_s);
    dialog->findChild<QLineEdit*>(u"Text3"_s)->setText(u"Anna"_s);
    dialog->findChild<QLineEdit*>(u"Text1"_s)->setText(u"13 Nov 1945"_s);
    dialog->findChild<QPushButton*>(u"Command2"_s)->click();
    QCOMPARE(fixture.panels(), (QStringList{u"Nome: Anna"_s, u"Data di nascita: 13/11/1945"_s,
                                            u"Data in esame per il calcolo: 21/11/2026"_s}));
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Anna"_s});
}

void TestMDIForm1::quitting() {
    for (const Command command : {Command::mnuEsci, Command::mnuEsci2}) {
        FrameFixture fixture;
        fixture.frame.run(command); // nothing to ask
        QCOMPARE(fixture.ended.count(), 1);
    }
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::no);
    fixture.frame.run(Command::mnuEsci);
    QCOMPARE(fixture.ended.count(), 0);
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.frame.run(Command::mnuEsci);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.ended.count(), 1);
}

void TestMDIForm1::theCloseBoxAsks() {
    FrameFixture fixture;
    fixture.enter();
    fixture.expectClosing(Answer::no);
    QVERIFY(!fixture.frame.close());
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.frame.isVisible());
    QCOMPARE(fixture.ended.count(), 0);

    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    QVERIFY(!fixture.frame.close()); // the request is cancelled, the quit command ends the program
    QCOMPARE(fixture.ended.count(), 1);
    QVERIFY(!fixture.frame.close()); // and nothing is asked twice
    QCOMPARE(fixture.ended.count(), 1);
}

void TestMDIForm1::afterClosing() {
    FrameFixture fixture;
    fixture.program.biorhythm.showMean = false;
    fixture.program.biorhythm.openForecasts = true;
    fixture.enter();
    fixture.program.state.filePath = u"x.bio"_s;
    fixture.program.biorhythm.graphDaysAdjust = 7;
    fixture.frame.closeBiorhythm();
    QCOMPARE(fixture.panels(), (QStringList{{}, {}, {}}));
    QCOMPARE(fixture.disabledTools(), (QList<int>{3, 7, 9, 10, 11, 12, 14, 16, 18}));
    QCOMPARE(fixture.disabledCommands(), systemCommands() + biorhythmCommands());
    QVERIFY(fixture.children().isEmpty());
    const Biorhythm& biorhythm = fixture.program.biorhythm;
    QVERIFY(!biorhythm.isPresent());
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(2026, 11, 21));
    QCOMPARE(biorhythm.graphDaysAdjust, std::int16_t{0});
    QVERIFY(!biorhythm.showMean && biorhythm.openForecasts);
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(fixture.program.state.filePath.isEmpty());
}

/// Assistive tools choose entries of menus that no mouse reaches: no box may come over another.
void TestMDIForm1::nothingBeneathABox() {
    FrameFixture fixture;
    fixture.enter();
    const QStringList children = fixture.children();
    QVERIFY(!children.isEmpty());
    QAction* close = fixture.area()->subWindowList().constFirst()->systemMenu()->actions().last();
    QDialog box(&fixture.frame);
    box.open();
    close->trigger();
    QCOMPARE(fixture.children(), children);
    for (const QString& name :
         {u"mnuChiudiBioritmo"_s, u"mnuCalcola"_s, u"mnuEsci"_s, u"mnuPopOpt"_s}) {
        fixture.action(name)->trigger();
    }
    QCOMPARE(fixture.frame.findChildren<QDialog*>(), (QList<QDialog*>{&box}));
    QCOMPARE(fixture.panels().constFirst(), u"Nome: Maria Rossi"_s);
    QVERIFY(fixture.ended.isEmpty());
    box.close();
    fixture.expectClosing(Answer::no);
    fixture.action(u"mnuChiudiBioritmo"_s)->trigger();
    close->trigger();
    QCOMPARE(fixture.children().size(), children.size() - 1);
}

void TestMDIForm1::popupOptionsReachTheActiveChild() {
    FrameFixture fixture;
    fixture.action(u"mnuPopOpt"_s)->trigger(); // no child: nothing happens
    fixture.enter();
    fixture.frame.showDayPopup({.day = u"Giorno 15/03/2004"_s,
                                .physical = u"Fisico: -7"_s,
                                .emotional = u"Emotivo: -8"_s,
                                .intellectual = u"Intellettivo: -4"_s,
                                .mean = u"Media: -6"_s},
                               {10, 10});
    QCOMPARE(fixture.action(u"mnuPopGiorno"_s)->text(), u"Giorno 15/03/2004"_s);
    QCOMPARE(fixture.action(u"mnuPopMed"_s)->text(), u"Media: -6"_s);
    QCOMPARE(fixture.action(u"mnuPopOpt"_s)->text(), u"Opzioni"_s);
    QVERIFY(!fixture.action(u"mnuPopNota"_s)->isVisible());
    DayPopup noted;
    noted.note = u"Le curve cominciano altrove."_s;
    fixture.frame.showDayPopup(noted, {10, 10});
    auto* menu = fixture.frame.findChild<QMenu*>(u"mnuPopUp"_s);
    const QAction* note =
        menu->actions().at(menu->actions().indexOf(fixture.action(u"mnuPopMed"_s)) + 1);
    QCOMPARE(note->text(), u"Le curve cominciano altrove."_s);
    QVERIFY(note->isVisible() && !note->isEnabled());
    menu->close();
    fixture.action(u"mnuPopOpt"_s)->trigger();
    QVERIFY(fixture.frame.findChild<FGrph*>()->findChild<FGrOpt*>() != nullptr);
}

void TestMDIForm1::arranging() {
    FrameFixture fixture;
    fixture.frame.resize(900, 700);
    for (const QString& title : {u"a"_s, u"b"_s, u"c"_s}) {
        auto* child = new ChildWindow;
        child->setWindowTitle(title);
        fixture.frame.showChild(child);
    }
    QCoreApplication::processEvents();
    const QSize size = fixture.area()->viewport()->size();
    const auto windows = fixture.area()->subWindowList(); // in the order of their making
    const auto geometry = [&](int i) { return windows[i]->geometry(); };

    fixture.frame.run(Command::mnuWinArrHor);
    QCOMPARE(geometry(2), QRect(0, 0, size.width(), size.height() / 3)); // the active one first
    QCOMPARE(geometry(1).topLeft(), QPoint(0, size.height() / 3));
    fixture.frame.run(Command::mnuWinArrVer);
    QCOMPARE(geometry(2), QRect(0, 0, size.width() / 3, size.height()));
    QCOMPARE(geometry(1).topLeft(), QPoint(size.width() / 3, 0));

    // Minimised windows keep out of the way and stand in a row at the bottom.
    windows[0]->showMinimized();
    windows[0]->move(100, 10);
    QCoreApplication::processEvents();
    fixture.frame.run(Command::mnuWinArrIco);
    QCOMPARE(geometry(0).bottomLeft(), QPoint(0, size.height() - 1));
    fixture.frame.run(Command::mnuWinArrVer);
    QCOMPARE(geometry(2).height(), size.height() - geometry(0).height());
    QCOMPARE(geometry(2).width(), size.width() / 2);

    fixture.frame.run(Command::mnuWinArrCas);
    QVERIFY(geometry(1).topLeft() != geometry(2).topLeft());
    windows[2]->showMaximized();
    fixture.frame.run(Command::mnuWinArrHor);
    QVERIFY(!windows[2]->isMaximized());
    QCOMPARE(geometry(2).width(), size.width());
}

void TestMDIForm1::oneGraphAtATime() {
    FrameFixture fixture;
    fixture.enter();
    const QPointer<FGrph> first = fixture.frame.findChild<FGrph*>();
    fixture.frame.run(Command::mnuGrafico);
    QCOMPARE(fixture.children().size(), 1);
    QVERIFY(!first.isNull());
    // Closed and opened again it is a new one, even before the old one is gone.
    first->closeWindow();
    fixture.frame.run(Command::mnuGrafico);
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
    QVERIFY(first.isNull());
    const auto* second = fixture.area()->subWindowList().constFirst();
    QVERIFY(second->isVisible());
}

void TestMDIForm1::withASystemOpen() {
    FrameFixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.program.biorhythm.openGraph = true;
    fixture.enter();
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s}); // no view opens
    QCOMPARE(fixture.panels(), (QStringList{u"Nome: "_s, u"1 bioritmi nel sistema"_s,
                                            u"Data in esame per il calcolo: 15/03/2004"_s}));
}

} // namespace quor::test
