#include "shell/TestRecentFiles.h"

#include "shell/FrameFixture.h"

#include "shell/Folders.h"
#include "shell/StateFile.h"
#include "storage/SystemFile.h"

#include <QKeySequence>
#include <QMenu>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr auto bio = FileKind::biorhythm;
constexpr auto brs = FileKind::system;

class RecentFixture : public FrameFixture {
  public:
    [[nodiscard]] QMenu* recent(FileKind kind = bio) const {
        return frame.findChild<QMenu*>(kind == brs ? u"mnuSistemiRecenti"_s
                                                   : u"mnuBioritmiRecenti"_s);
    }
    [[nodiscard]] bool isEnabled(FileKind kind = bio) const {
        return recent(kind)->menuAction()->isEnabled();
    }
    /// The submenu's entries, separators as "-".
    [[nodiscard]] QStringList entries(FileKind kind = bio) const {
        QStringList texts;
        for (const QAction* action : recent(kind)->actions()) {
            texts << (action->isSeparator() ? u"-"_s : action->text());
        }
        return texts;
    }
    void choose(int index, FileKind kind = bio) const {
        recent(kind)->actions().at(index)->trigger();
        QCoreApplication::processEvents();
    }
    void openMenus() const {
        for (const auto* name : {"mnuFile", "mnuBioritmi"}) {
            emit frame.findChild<QMenu*>(QString::fromLatin1(name))->aboutToShow();
        }
    }

    /// The file of a system, as the program writes it.
    [[nodiscard]] QString writeSystem(const QString& name) const {
        Program other;
        resetToStartUp(other);
        other.biorhythm.calculationDate = toDateValue(QDate(2026, 11, 21));
        other.state.systemCount = 1;
        other.state.systemMembers = {{u"Anna"_s, toDateValue(QDate(1981, 12, 25))}};
        QString path = folder.filePath(name + u".brs"_s);
        if (saveSystemFile(path, other)) {
            qFatal("cannot write the test's own file");
        }
        return path;
    }
    [[nodiscard]] QString writeToday(const QString& name) const {
        return write(name, {2026, 11, 21});
    }

    StateFile state{stateFolder()};
};

const QStringList& none() {
    static const QStringList list;
    return list;
}

QStringList listed(QStringList names) {
    return std::move(names) << u"-"_s << u"&Svuota elenco"_s;
}

} // namespace

void TestRecentFiles::whereTheyStand() {
    const RecentFixture fixture;
    for (const auto& [menu, kind, quit] :
         {std::tuple{"mnuFile", brs, "mnuEsci"}, std::tuple{"mnuBioritmi", bio, "mnuEsci2"}}) {
        const QList<QAction*> actions =
            fixture.frame.findChild<QMenu*>(QString::fromLatin1(menu))->actions();
        const qsizetype last = actions.size() - 1;
        QCOMPARE(actions.at(last)->objectName(), QString::fromLatin1(quit));
        QVERIFY(actions.at(last - 1)->isSeparator());
        QCOMPARE(actions.at(last - 2), fixture.recent(kind)->menuAction());
        QVERIFY(actions.at(last - 3)->isSeparator());
        QVERIFY(!actions.at(last - 4)->isSeparator());
    }
}

/// Each entry marks one letter, the only one that Qt underlines, acts on and does not speak; and no
/// other entry marks that of the submenu.
void TestRecentFiles::accessKeys() {
    const RecentFixture fixture;
    for (const auto* menu : {"mnuFile", "mnuBioritmi"}) {
        QStringList letters;
        for (const QAction* action :
             fixture.frame.findChild<QMenu*>(QString::fromLatin1(menu))->actions()) {
            if (!action->isSeparator()) {
                QCOMPARE(action->text().count(u'&'), 1);
                letters << QKeySequence::mnemonic(action->text()).toString();
            }
        }
        QVERIFY(letters.size() > 8);
        QCOMPARE(letters.count(u"Alt+D"_s), 1);
    }
    for (const FileKind kind : {bio, brs}) {
        QCOMPARE(fixture.recent(kind)->title(), u"Aperti &di recente"_s);
    }
}

void TestRecentFiles::nothingYet() {
    const RecentFixture fixture;
    for (const FileKind kind : {bio, brs}) {
        QVERIFY(!fixture.isEnabled(kind));
        QCOMPARE(fixture.entries(kind), none());
    }
}

void TestRecentFiles::whatEnters() {
    RecentFixture fixture;
    // Opened from the menu, by the command line in both its ways, and saved in both.
    fixture.expectFile(FileMode::open, fixture.writeToday(u"Anna"_s));
    fixture.frame.run(Command::mnuApriBioritmo);
    QCOMPARE(fixture.entries(), listed({u"&1 Anna.bio"_s}));
    QVERIFY(fixture.isEnabled());

    fixture.dialogs.expectQuestion(
        u"Conferma"_s,
        u"Questo comporterà la chiusura del bioritmo di Anna. Si desidera continuare ugualmente?"_s,
        Answer::yes);
    fixture.frame.start({.mode = StartMode::openFile, .text = fixture.writeToday(u"Bea"_s)});
    fixture.dialogs.expectQuestion(
        u"Conferma"_s,
        u"Questo comporterà la chiusura del bioritmo di Bea. Si desidera continuare ugualmente?"_s,
        Answer::yes);
    fixture.frame.start(
        {.mode = StartMode::commandLineText, .text = u'"' + fixture.writeToday(u"Lia"_s) + u'"'});
    QCOMPARE(fixture.entries(), listed({u"&1 Lia.bio"_s, u"&2 Bea.bio"_s, u"&3 Anna.bio"_s}));

    fixture.expectFile(FileMode::save, fixture.folder.filePath(u"Copia.bio"_s));
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaConNome);
    QCOMPARE(fixture.entries().first(2), (QStringList{u"&1 Copia.bio"_s, u"&2 Lia.bio"_s}));
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaBioritmo);
    QCOMPARE(fixture.entries().first(2), (QStringList{u"&1 Lia.bio"_s, u"&2 Copia.bio"_s}));
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.isEnabled(brs));
    QCOMPARE(fixture.state.recentFiles(bio).size(), 4);
}

void TestRecentFiles::whatDoesNotEnter() {
    RecentFixture fixture;
    fixture.enter();
    fixture.expectFile(FileMode::save, {}); // cancelled
    fixture.frame.run(Command::mnuSalvaConNome);
    fixture.expectFile(FileMode::save, fixture.folder.path()); // fails
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaConNome);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.entries(), none());
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
}

void TestRecentFiles::aSystemEnters() {
    RecentFixture fixture;
    fixture.frame.loadSystemFile(fixture.writeSystem(u"Famiglia"_s));
    QCOMPARE(fixture.entries(brs), listed({u"&1 Famiglia.brs"_s}));
    const auto saved = fixture.folder.filePath(u"Amici.brs"_s);
    fixture.dialogs.expectFile(FileMode::save, u"Salva"_s, u"Bioritmic Sistem (*.brs) | *.brs"_s,
                               fixture.folder.filePath(u"UserFiles"_s), saved);
    fixture.expectSaved();
    fixture.frame.run(Command::mnuSalvaSistemaConNome);
    QCOMPARE(fixture.entries(brs), listed({u"&1 Amici.brs"_s, u"&2 Famiglia.brs"_s}));
    fixture.dialogs.expectBox(u"Ok"_s, u"Sistema salvato"_s);
    fixture.frame.run(Command::mnuSalvaSistema);
    QCOMPARE(fixture.entries(brs), listed({u"&1 Famiglia.brs"_s, u"&2 Amici.brs"_s}));
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.entries(bio), none());
}

void TestRecentFiles::aMemberEnters() {
    RecentFixture fixture;
    fixture.frame.loadSystemFile(fixture.writeSystem(u"Famiglia"_s));
    fixture.expectFile(FileMode::open, fixture.writeToday(u"Lia"_s));
    fixture.frame.run(Command::mnuApriBioritmo); // as "Inserisci un bioritmo esistente" does
    QCOMPARE(fixture.entries(bio), listed({u"&1 Lia.bio"_s}));
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{2});
}

void TestRecentFiles::entries() {
    const RecentFixture fixture;
    for (int i = 9; i >= 1; --i) {
        fixture.state.addRecentFile(bio, u"/a/<b>Rossi & figli %1<i>.bio"_s.arg(i));
    }
    fixture.openMenus();
    const auto actions = fixture.recent()->actions();
    QCOMPARE(actions.size(), 10);
    for (int i = 1; i <= 8; ++i) {
        const QAction* entry = actions.at(i - 1);
        QCOMPARE(entry->text(), u"&%1 <b>Rossi && figli %1<i>.bio"_s.arg(i));
        QCOMPARE(QKeySequence::mnemonic(entry->text()), QKeySequence(u"Alt+%1"_s.arg(i)));
        const QString path = u"/a/<b>Rossi & figli %1<i>.bio"_s.arg(i);
        QCOMPARE(entry->statusTip(), path);
        QTextDocument tip;
        tip.setHtml(entry->toolTip());
        QCOMPARE(tip.toPlainText(), path);
    }
    QVERIFY(fixture.recent()->toolTipsVisible());
}

void TestRecentFiles::theSameNameInTwoFolders() {
    const RecentFixture fixture;
    for (const char* path : {"/c/Lia.bio", "/a/b & c/Anna.bio", "/b/Bea.bio", "/a/Anna.bio"}) {
        fixture.state.addRecentFile(bio, QString::fromLatin1(path));
    }
    fixture.openMenus();
    QCOMPARE(fixture.entries(), listed({u"&1 Anna.bio (/a)"_s, u"&2 Bea.bio"_s,
                                        u"&3 Anna.bio (/a/b && c)"_s, u"&4 Lia.bio"_s}));
}

void TestRecentFiles::aLongName() {
    const RecentFixture fixture;
    const QString path = u"/a/%1.bio"_s.arg(QString(240, u'm'));
    fixture.state.addRecentFile(bio, path);
    fixture.openMenus();
    const QAction* entry = fixture.recent()->actions().constFirst();
    QVERIFY(entry->text().size() < 60);
    QVERIFY(entry->text().startsWith(u"&1 mmm"_s) && entry->text().endsWith(u"m.bio"_s));
    QCOMPARE(entry->statusTip(), path);
}

void TestRecentFiles::choosing() {
    RecentFixture fixture;
    const QString anna = fixture.write(u"Anna"_s); // of another day
    fixture.frame.loadBiorhythmFile(fixture.writeToday(u"Lia"_s));
    fixture.frame.closeBiorhythm();
    fixture.state.addRecentFile(bio, anna);
    fixture.openMenus();
    fixture.enter();

    fixture.expectClosing(Answer::no);
    fixture.choose(0);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);

    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.expectUpdate(Answer::no);
    fixture.choose(0);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Anna"_s);
    QCOMPARE(fixture.program.state.filePath, anna);
    QCOMPARE(fixture.children(), QStringList{u"Grafico di Anna"_s});

    fixture.program.state.modified = false;
    fixture.frame.closeBiorhythm();
    fixture.choose(1);
    QCOMPARE(fixture.program.biorhythm.name, u"Lia"_s);
    QCOMPARE(fixture.entries(), listed({u"&1 Lia.bio"_s, u"&2 Anna.bio"_s}));
}

void TestRecentFiles::choosingASystem() {
    RecentFixture fixture;
    const QString path = fixture.writeSystem(u"Famiglia"_s);
    fixture.state.addRecentFile(brs, path);
    fixture.openMenus();
    fixture.enter();
    fixture.expectClosing(Answer::no);
    fixture.choose(0, brs);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.systemOpen);

    fixture.program.state.modified = false;
    fixture.expectClosing(Answer::yes);
    fixture.choose(0, brs);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.program.state.systemFilePath, path);

    const QString closing =
        u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare "
        "ugualmente?"_s;
    fixture.dialogs.expectQuestion(u"Conferma"_s, closing, Answer::no);
    fixture.choose(0, brs);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
}

void TestRecentFiles::aMissingFile() {
    RecentFixture fixture;
    const QString gone = fixture.writeToday(u"Anna"_s);
    const QString there = fixture.writeToday(u"Lia"_s);
    fixture.state.addRecentFile(bio, there);
    fixture.state.addRecentFile(bio, gone);
    fixture.openMenus();
    fixture.enter();
    QVERIFY(QFile::remove(gone));
    // Said at once: no question about the current biorhythm comes before.
    fixture.dialogs.expectBox(u"Errore"_s, u"Il file \"%1\" non esiste."_s.arg(gone));
    fixture.choose(0);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Maria Rossi"_s);
    QCOMPARE(fixture.entries(), listed({u"&1 Lia.bio"_s}));
    QCOMPARE(fixture.state.recentFiles(bio), QStringList{there});
}

void TestRecentFiles::unreadableFiles_data() {
    QTest::addColumn<FileKind>("kind");
    QTest::addColumn<QByteArray>("bytes"); // null: a folder is there instead
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder") << bio << QByteArray() << u"è una cartella"_s;
    QTest::newRow("no name") << bio << QByteArray("Anna\r\n#1981-12-25#\r\n")
                             << u"il nome, alla riga 1, manca o è danneggiato"_s;
    QTest::newRow("no birth") << bio << QByteArray("\"Anna\"\r\n#1981-13-25#\r\n")
                              << u"la data di nascita, alla riga 2, manca o è danneggiata"_s;
    QTest::newRow("no count") << brs << QByteArray("-1\r\n")
                              << u"alla riga 1 non c'è un numero di persone da 0 a 32767"_s;
}

void TestRecentFiles::unreadableFiles() {
    QFETCH(FileKind, kind);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    RecentFixture fixture;
    const QString path = fixture.folder.filePath(kind == brs ? u"Rossi.brs"_s : u"Rossi.bio"_s);
    if (QFile file(path); bytes.isNull()) {
        QVERIFY(QDir().mkdir(path));
    } else {
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    const QString text = u"Il file \"%1\" non si può aprire:\n%2."_s.arg(path, reason);
    fixture.enter();
    const QStringList children = fixture.children();
    const Biorhythm before = fixture.program.biorhythm;
    const auto isUntouched = [&] {
        const AppState& state = fixture.program.state;
        return fixture.dialogs.finished() && fixture.children() == children &&
               fixture.program.biorhythm.name == before.name &&
               fixture.program.biorhythm.birthDate == before.birthDate && state.modified &&
               state.filePath.isEmpty() && !state.systemOpen;
    };
    // From the list, and as it is named at the start where work was taken back: no question comes.
    fixture.state.addRecentFile(kind, path);
    fixture.openMenus();
    fixture.dialogs.expectBox(u"Errore"_s, text);
    fixture.choose(0, kind);
    QVERIFY(isUntouched());
    for (const auto& [mode, named] :
         {std::pair{StartMode::openFile, path}, {StartMode::commandLineText, u'"' + path + u'"'}}) {
        fixture.dialogs.expectBox(u"Errore"_s, text);
        fixture.frame.start({.mode = mode, .text = named});
        QVERIFY(isUntouched());
    }
    // A folder will never be a file; the others may be mended.
    QCOMPARE(fixture.entries(kind),
             bytes.isNull() ? none() : listed({u"&1 "_s + QFileInfo(path).fileName()}));

    // By the command: what was open is closed first, as ever. Nothing opens, nothing is remembered.
    fixture.state.clearRecentFiles(kind);
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.dialogs.expectFile(FileMode::open, u"Apri"_s,
                               kind == brs ? u"Bioritmic Files (*.brs) | *.brs"_s : bioFilter(),
                               fixture.folder.filePath(u"UserFiles"_s), path);
    fixture.dialogs.expectBox(u"Errore"_s, text);
    fixture.frame.run(kind == brs ? Command::mnuApriSistema : Command::mnuApriBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.children().isEmpty() && !fixture.program.biorhythm.isPresent());
    QVERIFY(!fixture.program.state.systemOpen && fixture.program.state.filePath.isEmpty());
    QVERIFY(fixture.program.state.systemFilePath.isEmpty());
    QVERIFY(fixture.state.recentFiles(kind).isEmpty());
}

void TestRecentFiles::savedIntoTheFileThatIsChosen() {
    RecentFixture fixture;
    const QString path = fixture.writeToday(u"Maria Rossi"_s);
    fixture.frame.loadBiorhythmFile(path);
    fixture.program.biorhythm.graphDaysAdjust = 7;
    fixture.program.state.modified = true;
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::yes);
    fixture.expectSaved();
    fixture.choose(0);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{7}); // what was saved
}

void TestRecentFiles::emptying() {
    const RecentFixture fixture;
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    fixture.state.addRecentFile(brs, u"/a/Famiglia.brs"_s);
    fixture.openMenus();
    QVERIFY(fixture.isEnabled());
    fixture.choose(2);
    QCOMPARE(fixture.entries(), none());
    QVERIFY(!fixture.isEnabled());
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
    QVERIFY(fixture.isEnabled(brs));
    QCOMPARE(fixture.state.recentFiles(brs), QStringList{u"/a/Famiglia.brs"_s});
}

void TestRecentFiles::anotherProgramsFiles() {
    const RecentFixture fixture;
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    QVERIFY(!fixture.isEnabled());
    fixture.openMenus();
    QVERIFY(fixture.isEnabled());
    QCOMPARE(fixture.entries(), listed({u"&1 Anna.bio"_s}));
}

void TestRecentFiles::whileOpeningIsLocked() {
    RecentFixture fixture;
    fixture.state.addRecentFile(bio, fixture.writeToday(u"Anna"_s));
    fixture.state.addRecentFile(brs, fixture.writeSystem(u"Famiglia"_s));
    fixture.openMenus();
    const auto check = [&fixture](bool expected) {
        fixture.openMenus();
        for (const FileKind kind : {bio, brs}) {
            QCOMPARE(fixture.isEnabled(kind), expected);
            QCOMPARE(fixture.recent(kind)->actions().constFirst()->isEnabled(), expected);
        }
    };
    check(true);
    // One was chosen just before.
    fixture.recent()->actions().constFirst()->trigger();
    fixture.frame.lockCommands({});
    QCoreApplication::processEvents();
    QVERIFY(!fixture.program.biorhythm.isPresent());
    check(false);
    static constexpr std::array allowed{Command::mnuApriBioritmo, Command::mnuApriSistema};
    fixture.frame.lockCommands({.allowed = allowed});
    check(true);
    fixture.frame.lockCommands({});
    fixture.frame.unlockCommands();
    check(true);

    // The menus that rest while there is a system, and while it is exported.
    fixture.frame.setMenuEnabled(Menu::mnuBioritmi, false);
    fixture.frame.setMenuEnabled(Menu::mnuFile, false);
    fixture.choose(0, bio);
    fixture.choose(0, brs);
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(!fixture.program.state.systemOpen);
}

void TestRecentFiles::whileTheFrameIsDisabled() {
    RecentFixture fixture;
    fixture.state.addRecentFile(bio, fixture.writeToday(u"Anna"_s));
    fixture.openMenus();
    fixture.frame.setEnabled(false);
    QVERIFY(!fixture.recent()->isEnabled());
    fixture.choose(0);
    QVERIFY(!fixture.program.biorhythm.isPresent());
    fixture.frame.setEnabled(true);
    QVERIFY(fixture.isEnabled());
    fixture.choose(0);
    QCOMPARE(fixture.program.biorhythm.name, u"Anna"_s);
}

} // namespace quor::test
