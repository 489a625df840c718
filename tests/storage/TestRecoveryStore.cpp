#include "storage/TestRecoveryStore.h"

#include "storage/BiorhythmFile.h"
#include "storage/RecoveryStore.h"
#include "storage/SystemFile.h"

#include "storage/Files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <limits>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Maria's biorhythm, with no option at its default.
Program mariasProgram() {
    Program program;
    resetToStartUp(program);
    Biorhythm& biorhythm = program.biorhythm;
    biorhythm.name = u"Maria Però"_s;
    biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    biorhythm.dayIndexPosition = 3;
    biorhythm.graphDaysAdjust = -7;
    biorhythm.curveColours = {1, 2, 3, 4, 0};
    biorhythm.weeklyColours = {5, 6, 7, 0};
    program.state.modified = true;
    return program;
}

Program systemProgram() {
    Program program = mariasProgram();
    program.state.systemOpen = true;
    program.state.systemMembers = {{u"Anna"_s, 10000}, {u"Bruno"_s, -20000}};
    program.state.systemCount = 2;
    return program;
}

UnsavedWork workOf(const Program& program) {
    return unsavedWork(program).value_or(UnsavedWork{});
}

UnsavedWork workOf(const QString& name) {
    Program program = mariasProgram();
    program.biorhythm.name = name;
    return workOf(program);
}

/// The program of the next start.
Program opened(const LeftWork& left) {
    Program program;
    resetToStartUp(program);
    left.open(program);
    return program;
}

/// A folder of a test's own, in which the store makes its own.
class Place {
  public:
    [[nodiscard]] QString folder() const { return m_files.path(u"stato/recupero"_s); }
    [[nodiscard]] QString path(const QString& name) const { return QDir(folder()).filePath(name); }
    [[nodiscard]] QString outside(const QString& name) const { return m_files.path(name); }
    [[nodiscard]] RecoveryStore store() const { return RecoveryStore(folder()); }

    [[nodiscard]] QStringList endings() const {
        QStringList endings;
        for (const QFileInfo& file : QDir(folder()).entryInfoList(
                 QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
            endings << file.fileName().section(u'.', 1);
        }
        endings.sort();
        return endings;
    }
    [[nodiscard]] QString file(const QString& pattern) const {
        const QStringList names = QDir(folder()).entryList({pattern}, QDir::Files);
        return names.isEmpty() ? QString() : path(names.constFirst());
    }

    /// A run that ends without asking.
    void leave(const UnsavedWork& work) const {
        if (!store().write(work)) {
            qFatal("cannot write the test's own work");
        }
    }
    void put(const QString& name, const QByteArray& bytes) const {
        QDir().mkpath(folder());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write the test's own file");
        }
    }

  private:
    Files m_files;
};

void setChanged(const QString& file, const QDateTime& time) {
    QFile device(file);
    if (!device.open(QIODevice::ReadWrite) ||
        !device.setFileTime(time, QFileDevice::FileModificationTime)) {
        qFatal("cannot set the time of the test's own file");
    }
}

} // namespace

void TestRecoveryStore::whatIsUnsavedWork() {
    Program program = mariasProgram();
    QCOMPARE(unsavedWork(program)->content, biorhythmFileContent(program.biorhythm));
    QVERIFY(!unsavedWork(program)->isSystem);
    program.state.modified = false;
    QVERIFY(!unsavedWork(program));

    program = mariasProgram();
    program.biorhythm.name.clear();
    QVERIFY(unsavedWork(program)); // a birth makes a person
    program.biorhythm.birthDate = 0;
    QVERIFY(!unsavedWork(program));

    program = systemProgram();
    QCOMPARE(unsavedWork(program)->content, systemFileContent(program));
    QVERIFY(unsavedWork(program)->isSystem);
    program.state.systemCount = 0;
    QVERIFY(!unsavedWork(program));
}

void TestRecoveryStore::whatIsTheSameWork_data() {
    using Change = std::function<void(Program&)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("same");
    const auto row = [](const char* name, bool same, const Change& change) {
        QTest::newRow(name) << change << same;
    };
    row("nothing", true, [](Program&) {});
    row("a view", true, [](Program& program) { program.biorhythm.openGraph = false; });
    row("a name", false, [](Program& program) { program.biorhythm.name += u'x'; });
    row("a birth", false, [](Program& program) { program.biorhythm.birthDate += 1; });
    row("the date", false, [](Program& program) { program.biorhythm.calculationDate += 1; });
    row("a position", false, [](Program& program) { program.biorhythm.dayIndexPosition = 1; });
    row("a span", false, [](Program& program) { program.biorhythm.graphDaysAdjust = 1; });
    row("a curve", false, [](Program& program) { program.biorhythm.curveColours[3] = 99; });
    row("a week", false, [](Program& program) { program.biorhythm.weeklyColours[2] = 99; });
    row("a file", false, [](Program& program) { program.state.filePath = u"/a.bio"_s; });
    row("a system's file", false,
        [](Program& program) { program.state.systemFilePath = u"/a.brs"_s; });
    row("a member", false, [](Program& program) { program.state.systemMembers[1].name += u'x'; });
    row("a member's birth", false,
        [](Program& program) { program.state.systemMembers[1].birthDate += 1; });
    row("a member less", false, [](Program& program) { program.state.systemCount = 1; });
    row("closed", false, [](Program& program) { program.state.systemOpen = false; });
    row("saved", false, [](Program& program) { program.state.modified = false; });
}

void TestRecoveryStore::whatIsTheSameWork() {
    QFETCH(std::function<void(Program&)>, change);
    QFETCH(bool, same);
    const Program program = systemProgram();
    Program changed = program;
    change(changed);
    QCOMPARE(isSameWork(program, changed), same);
    QCOMPARE(isSameWork(changed, program), same);

    // Without changes there is no work.
    Program one = program;
    one.state.modified = false;
    changed.state.modified = false;
    QVERIFY(isSameWork(one, changed));
}

void TestRecoveryStore::pathsAreMadeAbsolute() {
    Program program = mariasProgram();
    QCOMPARE(workOf(program).path, QString());
    program.state.filePath = u"maria.bio"_s;
    program.state.systemFilePath = u"/altrove/rossi.brs"_s;
    QCOMPARE(workOf(program).path, QDir::current().absoluteFilePath(u"maria.bio"_s));
    program.state.systemOpen = true;
    program.state.systemCount = 1;
    QCOMPARE(workOf(program).path, u"/altrove/rossi.brs"_s);
}

void TestRecoveryStore::aBiorhythmComesBackAsItWas() {
    const Place place;
    Program program = mariasProgram();
    program.state.filePath = place.outside(u"maria.bio"_s);
    const UnsavedWork work = workOf(program);
    place.leave(work);

    const auto left = place.store().left();
    QCOMPARE(left.works.size(), std::size_t{1});
    QVERIFY(left.damaged.isEmpty());
    const LeftWork& found = left.works.front();
    QCOMPARE(found.name, u"Maria Però"_s);
    QCOMPARE(found.members, 0);
    QVERIFY(!found.fileIsNewer);
    QVERIFY(found.work == work);
    QVERIFY(std::abs(found.changed.secsTo(QDateTime::currentDateTime())) < 60);

    const Program back = opened(found);
    QCOMPARE(fields(back.biorhythm), fields(program.biorhythm));
    QCOMPARE(back.state.filePath, program.state.filePath);
    QVERIFY(back.state.modified);
    QVERIFY(unsavedWork(back) == work);
}

void TestRecoveryStore::aSystemComesBackAsItWas() {
    const Place place;
    Program program = systemProgram();
    program.state.systemFilePath = place.outside(u"rossi.brs"_s);
    place.leave(workOf(program));

    const auto left = place.store().left();
    QCOMPARE(left.works.size(), std::size_t{1});
    const LeftWork& found = left.works.front();
    QCOMPARE(found.name, QString());
    QCOMPARE(found.members, 2);
    QVERIFY(found.work.isSystem);
    const Program back = opened(found);
    QVERIFY(back.state.systemMembers == program.state.systemMembers);
    QCOMPARE(back.state.systemCount, program.state.systemCount);
    QCOMPARE(fields(back.biorhythm).sliced(2), fields(program.biorhythm).sliced(2));
    QCOMPARE(back.state.systemFilePath, program.state.systemFilePath);
    QCOMPARE(back.state.filePath, QString());
    QVERIFY(back.state.modified);
}

void TestRecoveryStore::theFileIsAnOrdinaryOneAsWell() {
    const Place place;
    place.leave(workOf(mariasProgram()));
    Program program;
    resetToStartUp(program);
    QVERIFY(!readBiorhythmFile(place.file(u"*.bio"_s), program));
    QCOMPARE(fields(program.biorhythm), fields(mariasProgram().biorhythm));
}

void TestRecoveryStore::pathsOfEveryKind_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QString();
    QTest::newRow("plain") << u"/casa/maria.bio"_s;
    QTest::newRow("blanks") << u"/casa mia/la mia.bio "_s;
    QTest::newRow("quotes") << u"/casa/\"la\" 'mia'.bio"_s;
    QTest::newRow("signs") << u"/casa/100%25 #?&\\:*.bio"_s;
    QTest::newRow("line end") << u"/casa/due\r\nrighe.bio"_s;
    QTest::newRow("alphabets") << u"/дом/家/però.bio"_s;
    QTest::newRow("long") << u'/' + QString(4000, u'è');
}

void TestRecoveryStore::pathsOfEveryKind() {
    QFETCH(QString, path);
    const Place place;
    UnsavedWork work = workOf(mariasProgram());
    work.path = path;
    place.leave(work);
    const auto left = place.store().left();
    QCOMPARE(left.works.size(), std::size_t{1});
    QCOMPARE(left.works.front().work.path, path);
    QVERIFY(left.works.front().work == work);
}

void TestRecoveryStore::onlyTheUserMayRead() {
    const Place place;
    RecoveryStore store = place.store();
    QVERIFY(store.write(workOf(mariasProgram())));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFileInfo(place.folder()).permissions() & others, QFile::Permissions());
    QCOMPARE(QFileInfo(place.file(u"*.bio"_s)).permissions() & others, QFile::Permissions());
    QCOMPARE(QFileInfo(place.file(u"*.lock"_s)).permissions() & others, QFile::Permissions());

    // A folder that others could enter is closed to them.
    QVERIFY(QFile::setPermissions(place.folder(), QFile::Permissions(0x7755)));
    RecoveryStore another = place.store();
    QVERIFY(another.write(workOf(mariasProgram())));
    QCOMPARE(QFileInfo(place.folder()).permissions() & others, QFile::Permissions());
}

void TestRecoveryStore::theSameWorkIsWrittenOnce() {
    const Place place;
    RecoveryStore store = place.store();
    Program program = mariasProgram();
    QVERIFY(store.write(workOf(program)));
    const QString file = place.file(u"*.bio"_s);
    QVERIFY(QFile::remove(file));
    QVERIFY(store.write(workOf(program)));
    QVERIFY(!QFileInfo::exists(file));
    program.state.filePath = u"/casa/maria.bio"_s; // belongs to it too
    QVERIFY(store.write(workOf(program)));
    QVERIFY(QFileInfo::exists(file));
}

void TestRecoveryStore::laterWorkTakesThePlace() {
    const Place place;
    {
        RecoveryStore store = place.store();
        QVERIFY(store.write(workOf(u"Maria"_s)));
        QVERIFY(store.write(workOf(u"Marta"_s)));
        QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
    }
    const auto left = place.store().left();
    QCOMPARE(left.works.size(), std::size_t{1});
    QCOMPARE(left.works.front().name, u"Marta"_s);
}

void TestRecoveryStore::anotherKindTakesThePlace() {
    const Place place;
    RecoveryStore store = place.store();
    QVERIFY(store.write(workOf(mariasProgram())));
    QVERIFY(store.write(workOf(systemProgram())));
    QCOMPARE(place.endings(), (QStringList{u"brs"_s, u"lock"_s}));
    QVERIFY(store.write(workOf(mariasProgram())));
    QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
}

void TestRecoveryStore::clearingLeavesNothing() {
    const Place place;
    RecoveryStore store = place.store();
    store.clear();
    QVERIFY(!QFileInfo::exists(place.folder()));
    QVERIFY(store.write(workOf(mariasProgram())));
    store.clear();
    QCOMPARE(place.endings(), QStringList());
    QVERIFY(store.write(workOf(mariasProgram())));
    QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
}

void TestRecoveryStore::aLivingRunIsLeftAlone() {
    const Place place;
    RecoveryStore living = place.store();
    QVERIFY(living.write(workOf(u"Maria"_s)));
    place.leave(workOf(u"Marta"_s));
    const RecoveryStore next = place.store();
    for (int start = 0; start < 2; ++start) {
        const auto left = next.left();
        QCOMPARE(left.works.size(), std::size_t{1});
        QCOMPARE(left.works.front().name, u"Marta"_s);
    }
    QVERIFY(living.write(workOf(u"Mirta"_s)));
    QVERIFY(QFileInfo::exists(place.file(u"*.lock"_s)));
}

void TestRecoveryStore::theLatestFirst() {
    const Place place;
    const QDateTime noon(QDate(2026, 11, 20), QTime(12, 0));
    for (const auto& [name, hours] :
         {std::pair(u"seconda"_s, 1), std::pair(u"terza"_s, 0), std::pair(u"prima"_s, 2)}) {
        const QStringList before = QDir(place.folder()).entryList({u"*.bio"_s});
        place.leave(workOf(name));
        for (const QString& file : QDir(place.folder()).entryList({u"*.bio"_s})) {
            if (!before.contains(file)) {
                setChanged(place.path(file), noon.addSecs(3600LL * hours));
            }
        }
    }
    QStringList names;
    const auto left = place.store().left();
    for (const LeftWork& work : left.works) {
        names << work.name;
    }
    QCOMPARE(names, (QStringList{u"prima"_s, u"seconda"_s, u"terza"_s}));
    QCOMPARE(left.works.front().changed, noon.addSecs(7200));
}

void TestRecoveryStore::foundWorkIsNobodyElses() {
    const Place place;
    place.leave(workOf(mariasProgram()));
    {
        const auto found = place.store().left();
        QCOMPARE(found.works.size(), std::size_t{1});
        QVERIFY(place.store().left().works.empty());
    }
    QCOMPARE(place.store().left().works.size(), std::size_t{1});
}

void TestRecoveryStore::adoptedWorkIsTheRunsOwn() {
    const Place place;
    place.leave(workOf(mariasProgram()));
    const QString file = place.file(u"*.bio"_s);
    {
        RecoveryStore store = place.store();
        auto found = store.left();
        store.adopt(std::move(found.works.front()));
        QCOMPARE(place.file(u"*.bio"_s), file);
        QVERIFY(place.store().left().works.empty());
        // The same again changes nothing, later work takes the place.
        QVERIFY(store.write(workOf(mariasProgram())));
        QVERIFY(store.write(workOf(u"Marta"_s)));
        QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
    }
    RecoveryStore store = place.store();
    auto found = store.left();
    QCOMPARE(found.works.size(), std::size_t{1});
    QCOMPARE(found.works.front().name, u"Marta"_s);
    store.adopt(std::move(found.works.front()));
    store.clear();
    QCOMPARE(place.endings(), QStringList());
}

void TestRecoveryStore::adoptingForgetsTheRunsOwn() {
    const Place place;
    place.leave(workOf(mariasProgram()));
    RecoveryStore store = place.store();
    QVERIFY(store.write(workOf(systemProgram())));
    auto found = store.left();
    QCOMPARE(found.works.size(), std::size_t{1});
    store.adopt(std::move(found.works.front()));
    QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
}

void TestRecoveryStore::removedWorkIsGone() {
    const Place place;
    place.leave(workOf(mariasProgram()));
    place.leave(workOf(systemProgram()));
    auto found = place.store().left();
    QCOMPARE(found.works.size(), std::size_t{2});
    for (LeftWork& work : found.works) {
        RecoveryStore::remove(std::move(work));
    }
    QCOMPARE(place.endings(), QStringList());
    QVERIFY(place.store().left().works.empty());
}

void TestRecoveryStore::workThatStandsInItsFile() {
    const Place place;
    Program program = mariasProgram();
    program.state.filePath = place.outside(u"maria.bio"_s);
    place.leave(workOf(program));
    QCOMPARE(saveBiorhythmFile(program.state.filePath, program), std::nullopt);
    QVERIFY(place.store().left().works.empty());
    QCOMPARE(place.endings(), QStringList());
}

void TestRecoveryStore::aFileWrittenSince() {
    const Place place;
    Program program = mariasProgram();
    program.state.filePath = place.outside(u"maria.bio"_s);
    place.leave(workOf(program));
    program.biorhythm.graphDaysAdjust = 30;
    QCOMPARE(saveBiorhythmFile(program.state.filePath, program), std::nullopt);
    setChanged(program.state.filePath, QDateTime::currentDateTime().addSecs(-3600));
    QVERIFY(!place.store().left().works.front().fileIsNewer);
    setChanged(program.state.filePath, QDateTime::currentDateTime().addSecs(3600));
    QVERIFY(place.store().left().works.front().fileIsNewer);
}

void TestRecoveryStore::cutFilesAreSetAside() {
    QByteArray whole;
    {
        const Place place;
        place.leave(workOf(mariasProgram()));
        whole = Files::read(place.file(u"*.bio"_s));
    }
    QVERIFY(whole.size() > 100);
    const Place place;
    for (qsizetype size = 0; size < whole.size(); ++size) {
        place.put(u"run.bio"_s, whole.first(size));
        const auto left = place.store().left();
        QVERIFY(left.works.empty());
        QCOMPARE(left.damaged, QStringList{place.path(u"run.bio.danneggiato"_s)});
        QCOMPARE(Files::read(left.damaged.constFirst()), whole.first(size));
        QVERIFY(place.store().left().damaged.isEmpty()); // told once
        QVERIFY(QFile::remove(left.damaged.constFirst()));
    }
    place.put(u"run.bio"_s, whole);
    QCOMPARE(place.store().left().works.size(), std::size_t{1});
    // A file that was set aside is not overwritten by another one; what cannot be set aside stays.
    place.put(u"run.bio.danneggiato"_s, "prima");
    place.put(u"run.bio"_s, "dopo");
    QVERIFY(place.store().left().damaged.isEmpty());
    QCOMPARE(Files::read(place.path(u"run.bio.danneggiato"_s)), QByteArray("prima"));
    QCOMPARE(Files::read(place.path(u"run.bio"_s)), QByteArray("dopo"));
}

void TestRecoveryStore::damagedFilesAreSetAside_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("binary") << binaryBytes(100000);
    QTest::newRow("an ordinary file") << biorhythmFileContent(mariasProgram().biorhythm);
    QTest::newRow("one long line") << QByteArray(10'000'000, 'x');
    QTest::newRow("line ends only") << QByteArray("\r\n").repeated(100000);
    // Whole, but there is nobody in it.
    const Place place;
    place.leave({.content = "0\r\n0\r\n"});
    QTest::newRow("nobody") << Files::read(place.file(u"*.bio"_s));
    QByteArray changed;
    {
        const Place other;
        other.leave(workOf(mariasProgram()));
        changed = Files::read(other.file(u"*.bio"_s));
    }
    changed[1] = 'X';
    QTest::newRow("one byte") << changed;
}

void TestRecoveryStore::damagedFilesAreSetAside() {
    QFETCH(QByteArray, bytes);
    for (const QString& name : {u"run.bio"_s, u"run.brs"_s}) {
        const Place place;
        place.put(name, bytes);
        const auto left = place.store().left();
        QVERIFY(left.works.empty());
        QCOMPARE(left.damaged, QStringList{place.path(name + u".danneggiato"_s)});
        QCOMPARE(place.endings().size(), qsizetype{1}); // no lock remains
    }
}

void TestRecoveryStore::whatIsNoFileIsLeftAlone() {
    const Place place;
    QVERIFY(QDir().mkpath(place.path(u"folder.bio"_s)));
    QCOMPARE(mkfifo(QFile::encodeName(place.path(u"pipe.bio"_s)).constData(), 0600), 0);
    QVERIFY(QFile::link(place.outside(u"nowhere"_s), place.path(u"link.brs"_s)));
    place.put(u"other.txt"_s, "text");
    const QStringList before = place.endings();
    const auto left = place.store().left();
    QVERIFY(left.works.empty());
    QVERIFY(left.damaged.isEmpty());
    QCOMPARE(place.endings(), before);
}

void TestRecoveryStore::remainsAreCleared() {
    const Place place;
    place.put(u"a.lock"_s, {});
    place.put(u"b.new"_s, "half");
    const auto left = place.store().left();
    QVERIFY(left.works.empty());
    QVERIFY(left.damaged.isEmpty());
    QCOMPARE(place.endings(), QStringList());
}

void TestRecoveryStore::bothKindsUnderOneName() {
    const Place place;
    place.leave(workOf(systemProgram()));
    const QString system = place.file(u"*.brs"_s);
    place.leave(workOf(mariasProgram()));
    QVERIFY(QFile::rename(place.file(u"*.bio"_s),
                          place.path(QFileInfo(system).completeBaseName() + u".bio"_s)));
    for (const int members : {0, 2}) {
        auto found = place.store().left();
        QCOMPARE(found.works.size(), std::size_t{1});
        QCOMPARE(found.works.front().members, members);
        RecoveryStore::remove(std::move(found.works.front()));
    }
    QVERIFY(place.store().left().works.empty());
}

void TestRecoveryStore::whatHasTheFoldersNameStaysAsItIs() {
    const Place place;
    QVERIFY(QDir().mkpath(QFileInfo(place.folder()).path()));
    const QByteArray name = QFile::encodeName(place.folder());
    QCOMPARE(mkfifo(name.constData(), 0640), 0);
    RecoveryStore store = place.store();
    QVERIFY(store.left().works.empty());
    QVERIFY(!store.write(workOf(mariasProgram())));
    struct stat found {};
    QCOMPARE(lstat(name.constData(), &found), 0);
    QVERIFY(S_ISFIFO(found.st_mode));
    QCOMPARE(found.st_mode & 0777U, 0640U);
}

void TestRecoveryStore::aFolderThatCannotBeMade() {
    const Files files;
    RecoveryStore store(files.write("a file") + u"/recupero"_s);
    QVERIFY(!store.write(workOf(mariasProgram())));
    QVERIFY(!store.write(workOf(mariasProgram())));
    QVERIFY(store.left().works.empty());
    store.clear();
}

void TestRecoveryStore::aFullDisk() {
    const Place place;
    {
        RecoveryStore store = place.store();
        const FullDisk disk(10);
        QVERIFY(!store.write(workOf(u"Maria"_s)));
        QCOMPARE(place.endings(), QStringList());
    }
    RecoveryStore store = place.store();
    QVERIFY(store.write(workOf(u"Maria"_s)));
    {
        const FullDisk disk(10);
        QVERIFY(!store.write(workOf(u"Marta"_s)));
        QCOMPARE(place.endings(), (QStringList{u"bio"_s, u"lock"_s}));
    }
    QVERIFY(Files::read(place.file(u"*.bio"_s)).startsWith("\"Maria\""));
    QVERIFY(store.write(workOf(u"Marta"_s)));
    QVERIFY(Files::read(place.file(u"*.bio"_s)).startsWith("\"Marta\""));
}

void TestRecoveryStore::killedAtAnyMoment() {
    const Place place;
    Program program = systemProgram();
    program.state.systemMembers.assign(2000, {u"Membro"_s, 12345});
    program.state.systemCount = 2000;
    UnsavedWork work = workOf(program);
    int found = 0;
    for (int round = 0; round < 40; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            RecoveryStore store = place.store();
            for (;;) {
                work.path += u'x'; // other work each time
                if (work.path.size() > 50) {
                    work.path = u"/"_s;
                    store.clear();
                }
                if (!store.write(work)) {
                    _exit(1);
                }
            }
        }
        usleep(static_cast<useconds_t>(500 + 331 * round));
        kill(child, SIGKILL);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        auto left = place.store().left();
        QVERIFY(left.damaged.isEmpty());
        QVERIFY(left.works.size() <= 1);
        for (LeftWork& one : left.works) {
            QVERIFY(one.work.content == work.content);
            RecoveryStore::remove(std::move(one));
            ++found;
        }
        QCOMPARE(place.endings(), QStringList());
    }
    QVERIFY(found > 10);
}

void TestRecoveryStore::theLargestSystem() {
    constexpr auto count = std::numeric_limits<std::int16_t>::max();
    Program program = systemProgram();
    program.state.systemMembers.clear();
    for (int i = 0; i < count; ++i) {
        program.state.systemMembers.push_back({u"Membro numero %1"_s.arg(i), 10000.0 + i});
    }
    program.state.systemCount = count;
    const Place place;
    QElapsedTimer timer;
    {
        RecoveryStore store = place.store();
        timer.start();
        QVERIFY(store.write(workOf(program)));
        const auto first = timer.restart();
        const Program seen = program;
        program.state.systemMembers.back().name += u'x';
        program.state.systemMembers.back().name.chop(1); // equal, not shared
        timer.restart();
        QVERIFY(isSameWork(program, seen));
        qInfo("written in %lld ms, looked at again in %.3f ms", static_cast<long long>(first),
              static_cast<double>(timer.nsecsElapsed()) / 1e6);
        QVERIFY(first < 1000); // a machine under load, too
    }
    const auto left = place.store().left();
    QCOMPARE(left.works.size(), std::size_t{1});
    QCOMPARE(left.works.front().members, int{count});
    QVERIFY(opened(left.works.front()).state.systemMembers == program.state.systemMembers);
}

} // namespace quor::test
