#include "shell/TestSystemCommands.h"

#include "shell/FIns.h"
#include "shell/FrameFixture.h"
#include "storage/SystemFile.h"
#include "system/FProj.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

class Fixture : public FrameFixture {
  public:
    /// A file of a system, as the program writes it.
    [[nodiscard]] QString writeSystem(const QStringList& names,
                                      QDate calculation = {2004, 3, 15}) const {
        Program other;
        resetToStartUp(other);
        for (const QString& name : names) {
            other.state.systemMembers.push_back({name, toDateValue(QDate(1981, 12, 25))});
        }
        other.state.systemCount = static_cast<std::int16_t>(names.size());
        other.biorhythm.calculationDate = toDateValue(calculation);
        other.biorhythm.graphDaysAdjust = 5;
        const QString path = folder.filePath(u"famiglia.brs"_s);
        if (saveSystemFile(path, other)) {
            qFatal("cannot write the test's own file");
        }
        return path;
    }

    /// A system with two members and unsaved changes.
    void openSystemOfTwo() {
        frame.run(Command::mnuNuovoSistema);
        enter(u"Anna"_s);
        enter(u"Bruno"_s);
    }

    void expectSystemClosing(Answer answer) {
        dialogs.expectQuestion(u"Conferma"_s,
                               u"Questo comporterà la chiusura del sistema aperto attualmente. Si "
                               "desidera continuare ugualmente?"_s,
                               answer);
    }
    void expectSystemSaving(Answer answer) {
        dialogs.expectQuestion(u"Conferma"_s,
                               u"Sono presenti dati non salvati. Si desidera salvare prima di "
                               "chiudere il sistema ?"_s,
                               answer);
    }
    void expectOpenSystem(const QString& path) {
        dialogs.expectFile(FileMode::open, u"Apri"_s, u"Bioritmic Files (*.brs) | *.brs"_s,
                           folder.filePath(u"UserFiles"_s), path);
    }
    void expectSaveSystem(const QString& path) {
        dialogs.expectFile(FileMode::save, u"Salva"_s, u"Bioritmic Sistem (*.brs) | *.brs"_s,
                           folder.filePath(u"UserFiles"_s), path);
    }

    [[nodiscard]] FProj* window() const { return frame.findChild<FProj*>(); }
    [[nodiscard]] QTreeView* tree() const { return frame.findChild<QTreeView*>(u"TreeView1"_s); }
    [[nodiscard]] QStringList branches() const {
        QStringList texts;
        for (int row = 0; row < tree()->model()->rowCount(); ++row) {
            texts << tree()->model()->index(row, 0).data().toString();
        }
        return texts;
    }
    void press(const QString& button) const {
        window()->findChild<QAbstractButton*>(button)->click();
    }
    [[nodiscard]] bool menuIsEnabled(const QString& name) const {
        return frame.menuBar()->findChild<QMenu*>(name)->menuAction()->isEnabled();
    }
    [[nodiscard]] QStringList contents(const QString& path) const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).split(u"\r\n"_s)
                                              : QStringList();
    }
};

} // namespace

void TestSystemCommands::newSystem() {
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s});
    QVERIFY(!fixture.menuIsEnabled(u"mnuBioritmi"_s));
    QVERIFY(fixture.menuIsEnabled(u"mnuFile"_s));
    QCOMPARE(fixture.disabledTools(), (QList<int>{5, 6, 7, 9, 10, 11, 12, 18}));
    for (const QString& name :
         {u"mnuSalvaSistema"_s, u"mnuSalvaSistemaConNome"_s, u"mnuChiudiSistema"_s,
          u"mnuOpzioniSistema"_s, u"mnuEsportaSistema"_s}) {
        QVERIFY(fixture.action(name)->isEnabled());
    }
}

void TestSystemCommands::newSystemClosesTheBiorhythm() {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        Fixture fixture;
        fixture.enter();
        fixture.program.state.modified = false;
        fixture.expectClosing(answer);
        fixture.frame.run(Command::mnuNuovoSistema);
        QVERIFY(fixture.dialogs.finished());
        const bool closed = answer == Answer::yes;
        QCOMPARE(fixture.program.state.systemOpen, closed);
        QCOMPARE(fixture.children(),
                 QStringList{closed ? u"Sistema corrente"_s : u"Grafico di Maria Rossi"_s});
        // The closed biorhythm left no date to compute the system at.
        QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate),
                 closed ? QDate(2026, 11, 21) : QDate(2004, 3, 15));
    }
}

void TestSystemCommands::newSystemClosesTheSystem() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::no);
    fixture.frame.run(Command::mnuNuovoSistema);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.branches().size(), 2);

    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::no);
    fixture.frame.run(Command::mnuNuovoSistema);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s});
    QVERIFY(fixture.branches().isEmpty());
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{0});
}

void TestSystemCommands::enteringMembers() {
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.press(u"Command1"_s);
    auto* dialog = fixture.frame.findChild<FIns*>();
    QVERIFY(!dialog->isModal());
    dialog->findChild<QLineEdit*>(u"Text3"_s)->setText(u"Anna"_s);
    dialog->findChild<QLineEdit*>(u"Text1"_s)->setText(u"1990-01-02"_s);
    dialog->findChild<QPushButton*>(u"Command2"_s)->click();
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
    QCOMPARE(fixture.program.state.systemMembers,
             (std::vector<SystemMember>{{u"Anna"_s, toDateValue(QDate(1990, 1, 2))}}));
    QCOMPARE(fixture.panels(), (QStringList{u"Nome: "_s, u"1 bioritmi nel sistema"_s,
                                            u"Data in esame per il calcolo: "_s +
                                                shortDate(toDateValue(QDate(2026, 11, 21)))}));
    // No view opens, whatever the dialog's boxes say.
    QVERIFY(fixture.program.biorhythm.openGraph);
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s});
}

void TestSystemCommands::aNameOnlyOnce() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.dialogs.expectBox(
        u"Errore"_s, u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s);
    fixture.enter(u"Anna"_s);
    QVERIFY(fixture.dialogs.finished());
    fixture.enter(u"ANNA"_s);
    QCOMPARE(fixture.branches(),
             (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s, u"Bioritmo di ANNA"_s}));
}

void TestSystemCommands::aRefusedNameStoresNothing() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    AppState& state = fixture.program.state;
    state.modified = false;
    state.guidedProcedureActive = 2;
    const QStringList before = fixture.panels();
    fixture.press(u"Command1"_s);
    auto* entry = fixture.frame.findChild<FIns*>();
    const auto field = [entry](const QString& name) { return entry->findChild<QLineEdit*>(name); };
    field(u"Text3"_s)->setText(u" Anna "_s);
    field(u"Text1"_s)->setText(u"02/01/1990"_s);
    field(u"Text2"_s)->setText(u"31/01/2010"_s);
    field(u"Text2"_s)->setFocus();
    fixture.dialogs.expectBox(
        u"Errore"_s, u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s);
    entry->accept();
    QVERIFY(fixture.dialogs.finished());

    const Biorhythm& biorhythm = fixture.program.biorhythm;
    QCOMPARE(biorhythm.name, u"Bruno"_s);
    QCOMPARE(toQDate(biorhythm.birthDate), QDate(1981, 12, 25));
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(2004, 3, 15));
    QVERIFY(!state.modified && !state.guidedStepDone);
    QCOMPARE(state.systemCount, std::int16_t{2});
    QCOMPARE(fixture.panels(), before);
    // What was typed stands there to be corrected.
    QVERIFY(entry->isVisible());
    QVERIFY(entry->focusWidget() == field(u"Text3"_s));
    QCOMPARE(field(u"Text3"_s)->text(), u" Anna "_s);
    QCOMPARE(field(u"Text1"_s)->text(), u"02/01/1990"_s);
    QCOMPARE(field(u"Text2"_s)->text(), u"31/01/2010"_s);
    field(u"Text3"_s)->setText(u"Carla"_s);
    entry->accept();
    QVERIFY(state.modified && state.guidedStepDone);
    QCOMPARE(fixture.branches().constLast(), u"Bioritmo di Carla"_s);
    QCOMPARE(fixture.panels().at(2), u"Data in esame per il calcolo: 31/01/2010"_s);
    state.guidedProcedureActive = 0;
}

void TestSystemCommands::membersFromFiles() {
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.expectFile(FileMode::open, fixture.write(u"Carla"_s));
    fixture.press(u"Command2"_s); // nothing is asked about a biorhythm or its date
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Carla"_s});
    QVERIFY(fixture.program.state.modified);
    fixture.expectFile(FileMode::open, {});
    fixture.press(u"Command2"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.branches().size(), 1);
}

void TestSystemCommands::refusedFilesChangeNothing_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("name taken")
        << QByteArray("\"Anna\"\r\n#1990-01-02#\r\n")
        << u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s;
    QTest::newRow("birth damaged") // it would be that of the one who came before
        << QByteArray("\"Carla\"\r\n#1990-01-0x#\r\n")
        << u"Il file \"%1\" non si può aprire:\nla data di nascita, alla riga 2, manca o è "
           "danneggiata."_s;
}

void TestSystemCommands::refusedFilesChangeNothing() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    Fixture fixture;
    fixture.openSystemOfTwo();
    const QString path = fixture.folder.filePath(u"altra.bio"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const QStringList panels = fixture.panels();
    for (const bool modified : {false, true}) {
        AppState& state = fixture.program.state;
        state.modified = modified;
        fixture.expectFile(FileMode::open, path);
        fixture.dialogs.expectBox(u"Errore"_s, text.contains(u"%1"_s) ? text.arg(path) : text);
        fixture.press(u"Command2"_s);
        QVERIFY(fixture.dialogs.finished());
        QCOMPARE(state.modified, modified);
        QCOMPARE(state.systemCount, std::int16_t{2});
        QVERIFY(state.filePath.isEmpty());
        QCOMPARE(fixture.program.biorhythm.name, u"Bruno"_s);
        QCOMPARE(toQDate(fixture.program.biorhythm.birthDate), QDate(1981, 12, 25));
        QCOMPARE(fixture.panels(), panels);
        QVERIFY(!fixture.frame.findChild<QMenu*>(u"mnuBioritmiRecenti"_s)->isEnabled());
    }
}

void TestSystemCommands::theEntryClosesWithTheSystem() {
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.press(u"Command1"_s);
    fixture.program.state.modified = false;
    const QPointer<FIns> dialog = fixture.frame.findChild<FIns*>();
    QVERIFY(dialog->isVisible());
    fixture.expectSystemClosing(Answer::yes);
    fixture.frame.run(Command::mnuChiudiSistema);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(dialog.isNull());
}

void TestSystemCommands::aNewEntryAfterTheSystem() {
    // The entry that closes with the system is not the one that a new biorhythm is entered in.
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.press(u"Command1"_s);
    fixture.program.state.modified = false;
    fixture.expectSystemClosing(Answer::yes);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.dialogs.finished());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto* entry = fixture.frame.findChild<FIns*>();
    QVERIFY(entry != nullptr);
    QVERIFY(entry->isVisible());
}

void TestSystemCommands::openingAFile() {
    for (const Answer answer : {Answer::no, Answer::yes}) {
        Fixture fixture;
        const QString path = fixture.writeSystem({u"Anna"_s, u"Bruno"_s});
        fixture.expectOpenSystem(path);
        fixture.expectUpdate(answer);
        fixture.frame.run(Command::mnuApriSistema);
        QVERIFY(fixture.dialogs.finished());
        const bool moved = answer == Answer::yes;
        const QDate date = moved ? QDate(2026, 11, 21) : QDate(2004, 3, 15);
        QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
        QCOMPARE(fixture.panels(),
                 (QStringList{u"Nome: "_s + path, u"2 bioritmi nel sistema"_s,
                              u"Data in esame per il calcolo: "_s + shortDate(toDateValue(date))}));
        QCOMPARE(fixture.program.state.systemFilePath, path);
        QCOMPARE(fixture.program.state.modified, moved);
        QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{5});
        QVERIFY(fixture.window()->findChild<QPushButton*>(u"Command12"_s)->isEnabled());
        QVERIFY(!fixture.menuIsEnabled(u"mnuBioritmi"_s));
    }
}

void TestSystemCommands::openingAFileOfToday() {
    Fixture fixture;
    fixture.expectOpenSystem(fixture.writeSystem({u"Anna"_s}, {2026, 11, 21}));
    fixture.frame.run(Command::mnuApriSistema);
    QVERIFY(fixture.dialogs.finished()); // its date is not asked about
    QVERIFY(!fixture.program.state.modified);
}

void TestSystemCommands::openingClosesFirst() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::no);
    fixture.expectOpenSystem(fixture.writeSystem({u"Carla"_s}, {2026, 11, 21}));
    fixture.frame.run(Command::mnuApriSistema);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s});
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Carla"_s});
}

void TestSystemCommands::aCancelledOpenLeavesNoSystem() {
    Fixture fixture;
    fixture.expectOpenSystem({});
    fixture.frame.run(Command::mnuApriSistema);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.systemOpen);
    QVERIFY(fixture.children().isEmpty());
}

void TestSystemCommands::commandLineText() {
    Fixture fixture;
    const QString path = fixture.writeSystem({u"Anna"_s}, {2026, 11, 21});
    fixture.frame.start({.mode = StartMode::commandLineText, .text = u'"' + path + u'"'});
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
    QCOMPARE(fixture.panels().constFirst(), u"Nome: "_s + path);
}

void TestSystemCommands::oneViewInFront_data() {
    QTest::addColumn<int>("leaf");
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("maximised");
    QTest::addColumn<QSize>("size"); // of the frame: the view stands beside the leaf or above it
    for (int leaf = 0; leaf < 4; ++leaf) {
        for (const QString& way : {u"click"_s, u"double click"_s, u"Enter"_s}) {
            for (const bool maximised : {false, true}) {
                for (const QSize size : {QSize(1700, 1200), QSize(760, 600)}) {
                    QTest::addRow("%d %s %d %d", leaf, qPrintable(way), maximised, size.width())
                        << leaf << way << maximised << size;
                }
            }
        }
    }
}

/// However a leaf of the tree is opened there is one view, active and above the others.
void TestSystemCommands::oneViewInFront() {
    QFETCH(int, leaf);
    QFETCH(QString, way);
    QFETCH(bool, maximised);
    QFETCH(QSize, size);
    Fixture fixture;
    fixture.frame.resize(size);
    fixture.openSystemOfTwo();
    if (maximised) {
        fixture.area()->activeSubWindow()->showMaximized();
    }
    QTreeView* tree = fixture.tree();
    const QModelIndex node = tree->model()->index(leaf, 0, tree->model()->index(0, 0));
    tree->expandAll();
    tree->scrollTo(node);
    tree->setFocus();
    QCoreApplication::processEvents();
    const QPoint place = tree->viewport()->mapTo(&fixture.frame, tree->visualRect(node).center());
    if (way == u"Enter"_s) {
        tree->setCurrentIndex(node);
        QTest::keyClick(tree, Qt::Key_Return);
    } else if (way == u"click"_s) {
        QTest::mouseClick(fixture.frame.windowHandle(), Qt::LeftButton, {}, place);
    } else {
        QTest::mouseDClick(fixture.frame.windowHandle(), Qt::LeftButton, {}, place);
    }
    QCoreApplication::processEvents();
    QCOMPARE(fixture.children().size(), 2);
    const QMdiSubWindow* active = fixture.area()->activeSubWindow();
    QCOMPARE(active->widget()->windowTitle(), fixture.children().constLast());
    QCOMPARE(fixture.area()->subWindowList(QMdiArea::StackingOrder).constLast(), active);
    QVERIFY(active->isAncestorOf(QApplication::focusWidget()));
    if (maximised && leaf < 2) { // graph and week fill the frame, day state and forecasts do not
        QCOMPARE(active->geometry(), fixture.area()->viewport()->rect());
    }
}

void TestSystemCommands::savingAs() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    const QString path = fixture.folder.filePath(u"nuovo.brs"_s);
    fixture.expectSaveSystem(path);
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaSistema); // no file is known yet
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(fixture.program.state.systemFilePath.isEmpty()); // nor after it
    const QStringList lines = fixture.contents(path);
    QCOMPARE(lines.mid(0, 5), (QStringList{u"2"_s, u"\"Anna\""_s, u"#1981-12-25#"_s, u"\"Bruno\""_s,
                                           u"#1981-12-25#"_s}));
}

void TestSystemCommands::savingToTheKnownFile() {
    Fixture fixture;
    const QString path = fixture.writeSystem({u"Anna"_s}, {2026, 11, 21});
    fixture.frame.loadSystemFile(path);
    fixture.enter(u"Bruno"_s);
    fixture.dialogs.expectBox(u"Ok"_s, u"Sistema salvato"_s);
    fixture.frame.run(Command::mnuSalvaSistema);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.contents(path).constFirst(), u"2"_s);
    QVERIFY(!fixture.program.state.modified);
}

void TestSystemCommands::aFailedSaveIsReported() {
    Fixture fixture;
    const QString path = fixture.writeSystem({u"Anna"_s}, {2026, 11, 21});
    fixture.frame.loadSystemFile(path);
    fixture.program.state.modified = true;
    QVERIFY(QFile::remove(path) && QDir().mkdir(path)); // a folder is there instead
    ScriptedDialogs& dialogs = fixture.dialogs;
    QString reason;
    {
        Program other = fixture.program;
        reason = saveSystemFile(path, other).value_or(QString());
        QVERIFY(!reason.isEmpty());
    }
    const auto expectFailure = [&] {
        dialogs.expectBox(u"Errore"_s,
                          u"Errore imprevisto: il file \"%1\" non è stato salvato.\n%2"_s.arg(
                              QDir::toNativeSeparators(path), reason));
    };
    expectFailure();
    fixture.frame.run(Command::mnuSalvaSistema);
    QVERIFY(dialogs.finished());
    QVERIFY(fixture.program.state.modified);

    // Whoever wanted to save before closing keeps the system.
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::yes);
    expectFailure();
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
}

void TestSystemCommands::closing() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.program.state.modified = false;
    fixture.expectSystemClosing(Answer::yes);
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.children().isEmpty());
    QVERIFY(!fixture.program.state.systemOpen);
    QVERIFY(fixture.menuIsEnabled(u"mnuBioritmi"_s));
    QCOMPARE(fixture.disabledTools(), (QList<int>{3, 7, 9, 10, 11, 12, 14, 16, 18}));
    QVERIFY(!fixture.action(u"mnuSalvaSistema"_s)->isEnabled());
    QCOMPARE(fixture.panels(), (QStringList{{}, {}, {}}));
    QVERIFY(!fixture.program.biorhythm.isPresent()); // the last one entered is forgotten too

    // The next dialog proposes today, also on the next day.
    const FixedClock later(QDate(2026, 11, 22));
    fixture.frame.run(Command::mnuCalcola);
    QCOMPARE(fixture.frame.findChild<FIns*>()->findChild<QLineEdit*>(u"Text2"_s)->text(),
             shortDate(toDateValue(QDate(2026, 11, 22))));
}

void TestSystemCommands::aClosedSystemLeavesNothing() {
    Fixture fixture;
    fixture.frame.loadSystemFile(fixture.writeSystem({u"Anna"_s}, {2026, 11, 21}));
    Biorhythm& biorhythm = fixture.program.biorhythm;
    QVERIFY(biorhythm.name.isEmpty()); // no person was computed
    biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    biorhythm.weeklyColours[0] = 1;
    biorhythm.openStatistics = true;
    biorhythm.showMean = false;
    fixture.program.state.modified = true;
    fixture.frame.run(Command::mnuOpzioniSistema);
    QVERIFY(fixture.children().contains(u"Opzioni"_s));

    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::no);
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.children().isEmpty());
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(2026, 11, 21));
    QCOMPARE(graphOptions(biorhythm), defaultGraphOptions());
    QCOMPARE(weeklyColours(biorhythm), defaultWeeklyColours());
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(biorhythm.openStatistics && !biorhythm.showMean); // the user's habits stay

    // The next system is new: an entry and a file dialog that are cancelled change nothing in it.
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.press(u"Command1"_s);
    fixture.frame.findChild<FIns*>()->reject();
    fixture.expectFile(FileMode::open, {});
    fixture.press(u"Command2"_s);
    fixture.expectSystemClosing(Answer::yes); // and no question whether to save
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(fixture.dialogs.finished());
}

void TestSystemCommands::closingSavesFirst() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    const QString path = fixture.folder.filePath(u"nuovo.brs"_s);
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::yes);
    fixture.expectSaveSystem(path);
    fixture.expectSaved();
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.systemOpen);
    QCOMPARE(fixture.contents(path).constFirst(), u"2"_s);
}

void TestSystemCommands::aCancelledSaveKeepsTheSystem() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::yes);
    fixture.expectSaveSystem({});
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.branches().size(), 2);
}

void TestSystemCommands::closingIsRefused() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::no); // nothing more is asked
    fixture.area()->subWindowList().constFirst()->close();
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.branches().size(), 2);
    QVERIFY(fixture.program.state.modified);
    fixture.expectSystemClosing(Answer::no);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.frame.findChild<FIns*>(), nullptr);
}

void TestSystemCommands::savingAMemberKeepsTheSystemUnsaved() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.tree()->setCurrentIndex(fixture.tree()->model()->index(0, 0));
    const QString path = fixture.folder.filePath(u"anna.bio"_s);
    fixture.expectFile(FileMode::save, path);
    fixture.expectSaved();
    fixture.press(u"Command13"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.contents(path).constFirst(), u"\"Anna\""_s);
    QVERIFY(fixture.program.state.modified);
    QCOMPARE(fixture.program.biorhythm.name, u"Anna"_s);
}

void TestSystemCommands::exportAndPrintGiveEverythingBack() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    const QList<int> tools = fixture.disabledTools();
    for (const QString& button : {u"Command12"_s, u"Command14"_s, u"Command15"_s}) {
        fixture.tree()->setCurrentIndex(fixture.tree()->model()->index(1, 0));
        const bool prints = button == u"Command15"_s;
        fixture.dialogs.expectBox(
            u"Avviso"_s,
            u"Durante %1 non sarà possibile effettuare cambiamenti sul sistema.\nIl controllo del "
            "sistema sarà ripristinato con la chiusura della finestra %2."_s.arg(
                prints ? u"la procedura per la stampa"_s : u"l'esportazione"_s,
                prints ? u"di stampa"_s : u"esportazioni"_s));
        fixture.press(button);
        QVERIFY(fixture.dialogs.finished());
        QDialog* window = prints ? fixture.dialog(u"FStampaBio"_s) : fixture.dialog(u"FEspBio"_s);
        QVERIFY(window != nullptr);
        QVERIFY(window->isEnabled());
        QCOMPARE(window->windowTitle(), prints ? u"Stampa"_s
                                        : button == u"Command14"_s
                                            ? u"Esportazione del sistema"_s
                                            : u"Esportazione bioritmo di Bruno"_s);
        QCOMPARE(fixture.program.state.exportWholeSystem, button == u"Command14"_s);
        QVERIFY(!fixture.window()->isEnabled());
        QCOMPARE(fixture.frame.isEnabled(), button == u"Command14"_s);
        fixture.frame.close(); // neither ends nor asks
        QCOMPARE(fixture.ended.size(), 0);
        window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(fixture.frame.isEnabled());
        QVERIFY(fixture.window()->isEnabled());
        QVERIFY(fixture.menuIsEnabled(u"mnuFile"_s));
        QVERIFY(fixture.frame.findChild<QToolBar*>(u"Toolbar1"_s)->isEnabled());
        QCOMPARE(fixture.disabledTools(), tools);
        QVERIFY(!fixture.menuIsEnabled(u"mnuBioritmi"_s));
        QVERIFY(!fixture.program.state.exportWholeSystem);
    }
}

namespace {

void expectExportWarning(Fixture& fixture) {
    fixture.dialogs.expectBox(
        u"Avviso"_s,
        u"Durante l'esportazione non sarà possibile effettuare cambiamenti sul sistema.\nIl "
        "controllo del sistema sarà ripristinato con la chiusura della finestra esportazioni."_s);
}

} // namespace

/// Left open, the dialog for a new member would change the system that is being exported.
void TestSystemCommands::theEntryWaitsForTheExport() {
    for (const QString& button : {u"Command12"_s, u"Command14"_s}) {
        Fixture fixture;
        fixture.openSystemOfTwo();
        fixture.tree()->setCurrentIndex(fixture.tree()->model()->index(1, 0));
        fixture.press(u"Command1"_s);
        const QPointer<FIns> entry = fixture.frame.findChild<FIns*>();
        QVERIFY(entry->isEnabled());
        expectExportWarning(fixture);
        fixture.press(button);
        QVERIFY(!entry->isEnabled());
        QVERIFY(fixture.dialog(u"FEspBio"_s)->isEnabled());
        fixture.dialog(u"FEspBio"_s)->close();
        QVERIFY(fixture.dialogs.finished());
        QVERIFY(!entry.isNull() && entry->isVisible() && entry->isEnabled());
    }
}

void TestSystemCommands::theExportClosesWithTheSystem() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.program.biorhythm.name.clear(); // as when no member has been made current
    fixture.program.state.modified = false;
    expectExportWarning(fixture);
    fixture.press(u"Command14"_s);
    fixture.expectSystemClosing(Answer::no);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.dialog(u"FEspBio"_s) != nullptr);
    fixture.expectSystemClosing(Answer::yes);
    fixture.frame.run(Command::mnuCalcola);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.dialog(u"FEspBio"_s) == nullptr);
    QVERIFY(!fixture.program.state.exportWholeSystem);
    QVERIFY(fixture.menuIsEnabled(u"mnuFile"_s));
    QVERIFY(fixture.menuIsEnabled(u"mnuBioritmi"_s));
    QVERIFY(fixture.frame.findChild<QToolBar*>(u"Toolbar1"_s)->isEnabled());
}

void TestSystemCommands::quitting() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::no);
    fixture.frame.run(Command::mnuEsci);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.ended.size(), 0);
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::no);
    fixture.frame.run(Command::mnuEsci);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.ended.size(), 1);
}

void TestSystemCommands::quittingAnEmptySystem() {
    Fixture fixture;
    fixture.frame.run(Command::mnuNuovoSistema);
    fixture.frame.run(Command::mnuEsci2);
    QCOMPARE(fixture.ended.size(), 1);
}

void TestSystemCommands::theCloseBoxAsks() {
    Fixture fixture;
    fixture.openSystemOfTwo();
    fixture.expectSystemClosing(Answer::yes);
    fixture.expectSystemSaving(Answer::yes);
    fixture.expectSaveSystem({});
    QVERIFY(!fixture.frame.close());
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.ended.size(), 0);
    QVERIFY(fixture.program.state.systemOpen);
}

} // namespace quor::test
