#include "shell/TestRecovery.h"

#include "shell/EndRequests.h"
#include "shell/Folders.h"
#include "shell/FrameFixture.h"
#include "shell/Recovery.h"
#include "storage/RecoveryStore.h"
#include "storage/SystemFile.h"
#include "toolkit/SettingsStore.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace quor::test {

namespace {

const QDateTime& lastChange() {
    static const QDateTime time(QDate(2026, 11, 20), QTime(9, 5, 30));
    return time;
}

/// The state of a user who starts the program again and again.
class State {
  public:
    [[nodiscard]] QString home() const { return m_folder.path(); }

    [[nodiscard]] static QString folder() { return QDir(stateFolder()).filePath(u"recupero"_s); }
    [[nodiscard]] static QStringList files() {
        return QDir(folder()).entryList({u"*.bio"_s, u"*.brs"_s});
    }
    [[nodiscard]] static QString path() { return QDir(folder()).filePath(files().value(0)); }

    static void setChanged(const QString& path, const QDateTime& time) {
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(time, QFileDevice::FileModificationTime)) {
            qFatal("cannot set the time of the test's own file");
        }
    }

    /// A run that ends without asking; of two, the later one changed its data later.
    void leave(const Program& program) {
        const QStringList before = files();
        RecoveryStore store(folder());
        if (!store.write(unsavedWork(program).value())) {
            qFatal("cannot write the test's own work");
        }
        for (const QString& name : files()) {
            if (!before.contains(name)) {
                setChanged(QDir(folder()).filePath(name), lastChange().addDays(m_runs));
            }
        }
        ++m_runs;
    }
    void leavePerson(const QString& name = u"Maria Rossi"_s, const QString& path = {}) {
        Program program;
        resetToStartUp(program);
        program.biorhythm.name = name;
        program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
        program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
        program.biorhythm.graphDaysAdjust = -7;
        program.state.filePath = path;
        program.state.modified = true;
        leave(program);
    }
    void leaveSystem(int members, const QString& path = {}) {
        Program program;
        resetToStartUp(program);
        program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
        program.state.systemOpen = true;
        for (int i = 0; i < members; ++i) {
            program.state.systemMembers.push_back({u"Membro %1"_s.arg(i), 30000.0 + i});
        }
        program.state.systemCount = static_cast<std::int16_t>(members);
        program.state.systemFilePath = path;
        program.state.modified = true;
        leave(program);
    }

  private:
    QTemporaryDir m_folder;
    OwnStateHome m_home{m_folder.path()};
    int m_runs = 0;
};

QString offerText(const QString& whose, const QString& path, const QString& day,
                  const QString& more = {}) {
    return u"Quor è terminato prima che queste modifiche fossero salvate.\n\n"
           "%1\nFile: %2\nUltima modifica: %3 alle 09:05%4\n\nSi desidera recuperare queste modifiche?"_s
               .arg(whose, path, day, more);
}

void expectOffer(FrameFixture& fixture, const QString& text, const QString& button) {
    fixture.dialogs.expectChoice(u"Recupero"_s, text,
                                 {u"&Recupera"_s, u"&Elimina"_s, u"&Più tardi"_s}, button);
}

void expectMaria(FrameFixture& fixture, const QString& button, const QString& path = u"nessuno"_s) {
    expectOffer(fixture, offerText(u"Bioritmo di Maria Rossi"_s, path, u"20/11/2026"_s), button);
}

/// Has the settings say whether the fast-start window greets.
void setFastStart(const QString& value) {
    if (!saveSetting(u"Options"_s, u"FastStart"_s, value)) {
        qFatal("cannot write the test's own settings");
    }
}

Recovery& recoveryOf(const FrameFixture& fixture) {
    return *fixture.frame.findChild<Recovery*>();
}

const QString& recover() {
    static const QString caption = u"&Recupera"_s;
    return caption;
}

} // namespace

void TestRecovery::nothingToOffer() {
    setFastStart(u"FALSE"_s);
    const State state;
    FrameFixture fixture(state.home());
    fixture.frame.start({});
    QVERIFY(!fixture.program.state.modified);
    recoveryOf(fixture).update();
    QVERIFY(!QFileInfo::exists(State::folder()));
}

void TestRecovery::theTimerPutsWorkAside() {
    const State state;
    FrameFixture fixture(state.home());
    fixture.enter();
    QTRY_COMPARE_WITH_TIMEOUT(State::files().size(), qsizetype{1}, 10000);
    QVERIFY(RecoveryStore(State::folder()).left().works.empty()); // this run lives
    fixture.program.state.modified = false;
    QTRY_COMPARE_WITH_TIMEOUT(State::files().size(), qsizetype{0}, 10000);
}

void TestRecovery::aBiorhythmIsTakenBack() {
    setFastStart(u"FALSE"_s);
    State state;
    const QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath(u"maria.bio"_s);
    state.leavePerson(u"Maria Rossi"_s, path);
    {
        FrameFixture fixture(state.home());
        expectMaria(fixture, recover(), path);
        fixture.frame.start({}); // not asked for the date of calculation
        QCOMPARE(fixture.panels(),
                 (QStringList{u"Nome: Maria Rossi"_s, u"Data di nascita: 25/12/1981"_s,
                              u"Data in esame per il calcolo: 15/03/2004"_s}));
        QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
        QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{-7});
        QCOMPARE(fixture.program.state.filePath, path);
        QVERIFY(fixture.program.state.modified);
        recoveryOf(fixture).update();
        QCOMPARE(State::files().size(), qsizetype{1}); // not saved yet: another end would lose it
    }
    FrameFixture fixture(state.home());
    expectMaria(fixture, recover(), path);
    fixture.frame.start({});
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaBioritmo);
    QVERIFY(QFileInfo::exists(path));
    recoveryOf(fixture).update();
    QCOMPARE(State::files(), QStringList());
}

void TestRecovery::aSystemIsTakenBack() {
    setFastStart(u"FALSE"_s);
    State state;
    const QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath(u"rossi.brs"_s);
    state.leaveSystem(3, path);
    FrameFixture fixture(state.home());
    expectOffer(fixture, offerText(u"Sistema con 3 bioritmi"_s, path, u"20/11/2026"_s), recover());
    fixture.frame.start({});
    QCOMPARE(fixture.panels(), (QStringList{u"Nome: "_s + path, u"3 bioritmi nel sistema"_s,
                                            u"Data in esame per il calcolo: 15/03/2004"_s}));
    QCOMPARE(fixture.children(), QStringList{u"Sistema corrente"_s});
    QVERIFY(fixture.program.state.systemOpen);
    QVERIFY(fixture.program.state.modified);
    fixture.dialogs.expectBox(u"Ok"_s, u"Sistema salvato"_s);
    fixture.frame.run(Command::mnuSalvaSistema);
    Program back;
    QVERIFY(!readSystemFile(path, back));
    QVERIFY(back.state.systemMembers == fixture.program.state.systemMembers);
}

void TestRecovery::savedWorkIsNotKept() {
    const State state;
    FrameFixture fixture(state.home());
    fixture.enter();
    recoveryOf(fixture).update();
    QCOMPARE(State::files().size(), qsizetype{1});
    fixture.expectFile(FileMode::save, fixture.folder.filePath(u"m.bio"_s));
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaConNome);
    fixture.frame.keepUnsavedWork();
    QCOMPARE(State::files(), QStringList());
}

void TestRecovery::quittingForgets() {
    const State state;
    FrameFixture fixture(state.home());
    fixture.enter();
    recoveryOf(fixture).update();
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.frame.run(Command::mnuEsci2);
    QCOMPARE(fixture.ended.size(), 1);
    QCOMPARE(State::files(), QStringList());
    fixture.enter(); // whatever is left of the run
    recoveryOf(fixture).update();
    QCOMPARE(State::files(), QStringList());
}

void TestRecovery::closingForgets() {
    const State state;
    FrameFixture fixture(state.home());
    fixture.enter();
    recoveryOf(fixture).update();
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.frame.run(Command::mnuChiudiBioritmo);
    recoveryOf(fixture).update();
    QCOMPARE(State::files(), QStringList());
}

void TestRecovery::nothingIsTakenAwayUnderABox() {
    const State state;
    FrameFixture fixture(state.home());
    fixture.enter();
    recoveryOf(fixture).update();
    fixture.program.state.modified = false;
    {
        QDialog box(&fixture.frame);
        box.open();
        recoveryOf(fixture).update();
        QCOMPARE(State::files().size(), qsizetype{1});
    }
    recoveryOf(fixture).update();
    QCOMPARE(State::files(), QStringList());
}

/// The question whether to save is open when the session ends: its end is no answer.
void TestRecovery::aBoxThatTheEndClosesAnswersNothing() {
    const State state;
    const EndRequests requests;
    FrameFixture fixture(state.home());
    connect(&requests, &EndRequests::aboutToEnd, &fixture.frame, &MDIForm1::keepUnsavedWork);
    fixture.enter();
    // Before the next look at the data. What follows is what the unwinding boxes make of it.
    QTimer::singleShot(0, &fixture.frame, [&fixture] {
        fixture.expectClosing(Answer::yes);
        fixture.expectSaving(Answer::no);
        QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
        QCoreApplication::sendPostedEvents(QCoreApplication::instance(), QEvent::Quit);
        fixture.frame.run(Command::mnuEsci2);
    });
    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(State::files().size(), qsizetype{1});
}

void TestRecovery::laterKeepsIt() {
    setFastStart(u"FALSE"_s);
    State state;
    state.leavePerson();
    for (const QString& button : {u"&Più tardi"_s, QString()}) { // the second time it is closed
        FrameFixture fixture(state.home());
        expectMaria(fixture, button);
        fixture.frame.start({});
        QVERIFY(!fixture.program.biorhythm.isPresent());
        QVERIFY(!fixture.program.state.modified);
        // What else this run does leaves it alone.
        fixture.enter(u"Altra"_s);
        recoveryOf(fixture).update();
        QCOMPARE(State::files().size(), qsizetype{2});
        recoveryOf(fixture).forget();
    }
    QCOMPARE(State::files().size(), qsizetype{1});
}

void TestRecovery::deletingIsAskedTwice() {
    setFastStart(u"FALSE"_s);
    State state;
    state.leavePerson();
    const QString question =
        u"Bioritmo di Maria Rossi\n\nLe modifiche non salvate andranno perse.\nSi desidera eliminarle?"_s;
    FrameFixture fixture(state.home());
    expectMaria(fixture, u"&Elimina"_s);
    fixture.dialogs.expectLoss(u"Recupero"_s, question, Answer::no);
    expectMaria(fixture, u"&Elimina"_s);
    fixture.dialogs.expectLoss(u"Recupero"_s, question, Answer::yes);
    fixture.frame.start({});
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QCOMPARE(QDir(State::folder()).entryList(QDir::Files), QStringList());
}

void TestRecovery::theOthersWait() {
    setFastStart(u"FALSE"_s);
    State state;
    state.leavePerson();
    state.leaveSystem(1);
    state.leavePerson(u"Anna"_s);
    {
        FrameFixture fixture(state.home());
        expectOffer(fixture,
                    offerText(u"Bioritmo di Anna"_s, u"nessuno"_s, u"22/11/2026"_s,
                              u"\n\nCi sono altri 2 recuperi in attesa."_s),
                    u"&Più tardi"_s);
        expectOffer(fixture,
                    offerText(u"Sistema con un bioritmo"_s, u"nessuno"_s, u"21/11/2026"_s,
                              u"\n\nC'è un altro recupero in attesa."_s),
                    recover());
        fixture.frame.start({});
        QVERIFY(fixture.program.state.systemOpen);
        recoveryOf(fixture).forget();
    }
    FrameFixture fixture(state.home());
    expectOffer(fixture,
                offerText(u"Bioritmo di Anna"_s, u"nessuno"_s, u"22/11/2026"_s,
                          u"\n\nC'è un altro recupero in attesa."_s),
                u"&Più tardi"_s);
    expectMaria(fixture, recover());
    fixture.frame.start({});
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);
}

void TestRecovery::aFileWrittenSinceIsTold() {
    setFastStart(u"FALSE"_s);
    State state;
    FrameFixture fixture(state.home());
    const QString path = fixture.write(u"Maria Rossi"_s);
    state.leavePerson(u"Maria Rossi"_s, path);
    State::setChanged(path, lastChange().addSecs(60));
    const QString text =
        offerText(u"Bioritmo di Maria Rossi"_s, path, u"20/11/2026"_s,
                  u"\n\nAttenzione: il file è stato riscritto dopo queste modifiche."_s);
    expectOffer(fixture, text, u"&Più tardi"_s);
    fixture.frame.start({});
}

void TestRecovery::namesAreShortened_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shownName");
    QTest::addColumn<QString>("shownPath");
    const QString name = QString(100, u'a');
    const QString shown = u"Bioritmo di "_s + QString(47, u'a') + u'…';
    const QString folders = u'/' + QString(99, u'c');
    QTest::newRow("short") << u"Anna"_s << u"/a/Anna.bio"_s << u"Bioritmo di Anna"_s
                           << u"/a/Anna.bio"_s;
    QTest::newRow("no name") << QString() << u"/a/b.bio"_s << u"Bioritmo senza nome"_s
                             << u"/a/b.bio"_s;
    QTest::newRow("long") << name << folders + u"/Anna.bio"_s << shown
                          << u'/' + QString(43, u'c') + u"…/Anna.bio"_s;
    QTest::newRow("long file") << name << folders + u'/' + QString(100, u'd') << shown
                               << QString(53, u'd') + u'…';
    QTest::newRow("pairs") << name << u"/ab"_s + u"/😀"_s.repeated(20) + u"/Anna.bio"_s << shown
                           << u"/ab"_s + u"/😀"_s.repeated(13) + u"/…/Anna.bio"_s;
}

/// So that each stands on its line; of a path the file's name remains.
void TestRecovery::namesAreShortened() {
    QFETCH(QString, name);
    QFETCH(QString, path);
    QFETCH(QString, shownName);
    QFETCH(QString, shownPath);
    setFastStart(u"FALSE"_s);
    State state;
    state.leavePerson(name, path);
    FrameFixture fixture(state.home());
    expectOffer(fixture, offerText(shownName, shownPath, u"20/11/2026"_s), u"&Più tardi"_s);
    fixture.frame.start({});
}

void TestRecovery::damagedWorkIsToldOnce() {
    setFastStart(u"FALSE"_s);
    State state;
    state.leavePerson();
    const QString path = State::path();
    QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
    {
        FrameFixture fixture(state.home());
        fixture.dialogs.expectBox(
            u"Recupero"_s,
            u"Un file con modifiche non salvate è danneggiato e non può essere recuperato. Resta "
            "conservato come:\n%1.danneggiato"_s.arg(path));
        fixture.frame.start({});
        QVERIFY(!fixture.program.biorhythm.isPresent());
    }
    FrameFixture fixture(state.home());
    fixture.frame.start({});
    QVERIFY(QFileInfo::exists(path + u".danneggiato"_s));
}

void TestRecovery::theNamedFileComesAfterIt() {
    State state;
    state.leaveSystem(1);
    FrameFixture fixture(state.home());
    expectOffer(fixture, offerText(u"Sistema con un bioritmo"_s, u"nessuno"_s, u"20/11/2026"_s),
                recover());
    fixture.dialogs.expectQuestion(
        u"Conferma"_s,
        u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare "
        "ugualmente?"_s,
        Answer::yes);
    fixture.dialogs.expectQuestion(
        u"Conferma"_s,
        u"Sono presenti dati non salvati. Si desidera salvare prima di chiudere il sistema ?"_s,
        Answer::no);
    fixture.frame.start({.mode = StartMode::openFile,
                         .text = fixture.write(u"Lucia Verdi"_s, QDate(2026, 11, 21))});
    QVERIFY(!fixture.program.state.systemOpen);
    QCOMPARE(fixture.program.biorhythm.name, u"Lucia Verdi"_s);
    recoveryOf(fixture).update();
    QCOMPARE(State::files(), QStringList());
}

void TestRecovery::theNamedFileIsRefused() {
    State state;
    state.leavePerson();
    FrameFixture fixture(state.home());
    expectMaria(fixture, recover());
    fixture.expectClosing(Answer::no);
    fixture.frame.start({.mode = StartMode::openFile, .text = fixture.write(u"Lucia Verdi"_s)});
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);
    QVERIFY(fixture.program.state.modified);
}

void TestRecovery::whatIsNoFileClosesNothing() {
    State state;
    state.leavePerson();
    FrameFixture fixture(state.home());
    expectMaria(fixture, recover());
    const QString path = fixture.folder.filePath(u"UserFiles"_s);
    fixture.dialogs.expectBox(
        u"Errore"_s,
        u"Il file \"%1\" non si può aprire:\nnon è né un bioritmo (.bio) né un sistema (.brs)."_s
            .arg(path));
    fixture.frame.start({.mode = StartMode::openFile, .text = path});
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);
}

void TestRecovery::theFastStartWindow() {
    setFastStart(u"TRUE"_s);
    State state;
    state.leavePerson();
    {
        FrameFixture fixture(state.home());
        expectMaria(fixture, u"&Più tardi"_s);
        fixture.frame.start({});
        QCOMPARE(fixture.children(), QStringList{u"Quor Procedure guidate"_s});
    }
    FrameFixture fixture(state.home());
    expectMaria(fixture, recover());
    fixture.frame.start({});
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Maria Rossi"_s});
    setFastStart(u"FALSE"_s);
}

void TestRecovery::withoutAFolder() {
    setFastStart(u"FALSE"_s);
    FrameFixture fixture(u"/proc/nowhere"_s);
    fixture.frame.start({});
    fixture.enter();
    recoveryOf(fixture).update();
    recoveryOf(fixture).update();
    fixture.frame.keepUnsavedWork();
    QVERIFY(fixture.program.state.modified);
}

} // namespace quor::test
