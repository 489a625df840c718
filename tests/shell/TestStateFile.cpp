#include "shell/TestStateFile.h"

#include "shell/StateFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLockFile>

#include <sys/stat.h>

#include <ranges>
#include <thread>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr auto bio = FileKind::biorhythm;
constexpr auto brs = FileKind::system;

QStringList numbered(int first, int last) {
    QStringList paths;
    for (int i = first; i >= last; --i) {
        paths << u"/home/x/%1.bio"_s.arg(i);
    }
    return paths;
}

class StateFixture {
  public:
    void write(const QByteArray& contents) const {
        QVERIFY(QDir().mkpath(folder()));
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    [[nodiscard]] QString folder() const { return home.filePath(u"state/quor"_s); }
    [[nodiscard]] QString path() const { return folder() + u"/stato.ini"_s; }

    QTemporaryDir home;
    StateFile state{folder()};
};

} // namespace

void TestStateFile::nothingAtFirst() {
    const StateFixture fixture;
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
    QVERIFY(fixture.state.recentFiles(brs).isEmpty());
    QVERIFY(fixture.state.framePlace().isEmpty());
    QVERIFY(!QFile::exists(fixture.folder())); // reading makes nothing
}

void TestStateFile::newestFirst() {
    const StateFixture fixture;
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    fixture.state.addRecentFile(bio, u"/a/Lia.bio"_s);
    fixture.state.addRecentFile(brs, u"/a/Famiglia.brs"_s);
    QCOMPARE(fixture.state.recentFiles(bio), (QStringList{u"/a/Lia.bio"_s, u"/a/Anna.bio"_s}));
    fixture.state.addRecentFile(bio, u"/a/b/../Anna.bio"_s); // the same one
    QCOMPARE(fixture.state.recentFiles(bio), (QStringList{u"/a/Anna.bio"_s, u"/a/Lia.bio"_s}));
    QCOMPARE(fixture.state.recentFiles(brs), QStringList{u"/a/Famiglia.brs"_s});
    // It is in the file and not in this object.
    QCOMPARE(StateFile(fixture.folder()).recentFiles(bio),
             (QStringList{u"/a/Anna.bio"_s, u"/a/Lia.bio"_s}));
}

void TestStateFile::eightOfEachKind() {
    const StateFixture fixture;
    for (int i = 1; i <= 10; ++i) {
        fixture.state.addRecentFile(bio, u"/home/x/%1.bio"_s.arg(i));
        fixture.state.addRecentFile(brs, u"/home/x/%1.bio"_s.arg(i));
    }
    QCOMPARE(fixture.state.recentFiles(bio), numbered(10, 3));
    QCOMPARE(fixture.state.recentFiles(brs), numbered(10, 3));
}

void TestStateFile::removing() {
    const StateFixture fixture;
    for (const QString& path : numbered(3, 1)) {
        fixture.state.addRecentFile(bio, path);
        fixture.state.addRecentFile(brs, path);
    }
    fixture.state.removeRecentFile(bio, u"/home/x/2.bio"_s);
    fixture.state.removeRecentFile(bio, u"/home/x/never.bio"_s);
    QCOMPARE(fixture.state.recentFiles(bio), (QStringList{u"/home/x/1.bio"_s, u"/home/x/3.bio"_s}));
    fixture.state.clearRecentFiles(bio);
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
    QCOMPARE(fixture.state.recentFiles(brs).size(), 3);
}

void TestStateFile::thePlaceOfTheFrame() {
    const StateFixture fixture;
    QByteArray place;
    for (int byte = 0; byte < 256; ++byte) {
        place += static_cast<char>(byte);
    }
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    fixture.state.saveFramePlace(place);
    QCOMPARE(StateFile(fixture.folder()).framePlace(), place);
    QCOMPARE(fixture.state.recentFiles(bio), QStringList{u"/a/Anna.bio"_s});
}

void TestStateFile::whatANameMayHold() {
    const StateFixture fixture;
    const QStringList paths{u"/a/[RecentSystems]=x;#\"%\\n&.bio"_s, u"/a/Nicolò €😀.bio"_s,
                            u"/a=b/ blanks at both ends "_s, u"/a/@Invalid().bio"_s};
    for (const QString& path : std::ranges::reverse_view(paths)) {
        fixture.state.addRecentFile(bio, path);
    }
    QCOMPARE(fixture.state.recentFiles(bio), paths);
    QVERIFY(fixture.state.recentFiles(brs).isEmpty());
}

void TestStateFile::whatNoLineCanHold() {
    const StateFixture fixture;
    for (const QString& path : {u"/a/x\ny.bio"_s, u"/a/x\ry.bio"_s, u"/a/x\ty.bio"_s,
                                u"/a/x\u2028y.bio"_s, QString(u"/a/x"_s + QChar(0) + u".bio"_s),
                                u"/a/x\u0085.bio"_s, QString(u"/a/"_s + QString(5000, u'x')),
                                QString(u"/a/"_s + QString(2000, u'€'))}) { // 6003 bytes
        fixture.state.addRecentFile(bio, path);
        QVERIFY2(fixture.state.recentFiles(bio).isEmpty(), qPrintable(path));
    }
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    QCOMPARE(fixture.state.recentFiles(bio), QStringList{u"/a/Anna.bio"_s});
}

void TestStateFile::theLongestPathsFitTheFile() {
    const StateFixture fixture;
    QStringList paths;
    for (int i = 1; i <= 8; ++i) {
        paths << u"/%1/"_s.arg(i) + QString(1364, u'€'); // 4095 bytes
    }
    for (const QString& path : std::ranges::reverse_view(paths)) {
        fixture.state.addRecentFile(bio, path);
        fixture.state.addRecentFile(brs, path);
    }
    QCOMPARE(fixture.state.recentFiles(bio), paths);
    QCOMPARE(fixture.state.recentFiles(brs), paths);
}

void TestStateFile::aRelativePath() {
    const StateFixture fixture;
    fixture.state.addRecentFile(bio, u"Anna.bio"_s);
    QCOMPARE(fixture.state.recentFiles(bio), QStringList{QDir::current().filePath(u"Anna.bio"_s)});
}

void TestStateFile::damagedContents_data() {
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QByteArray>("place");
    const QStringList none;
    const QStringList anna{u"/a/Anna.bio"_s};
    QTest::newRow("nothing") << QByteArray() << none << QByteArray();
    QTest::newRow("no section") << QByteArray("File1=/a/Anna.bio\n") << none << QByteArray();
    QTest::newRow("bytes") << QByteArray("\0\xff\xfe[\n=\n\x80=\x80]\0", 12) << none
                           << QByteArray();
    QTest::newRow("relative, empty, twice")
        << QByteArray("[RecentBiorhythms]\nFile1=Anna.bio\nFile2=\nFile3=../x.bio\n"
                      "File4=/a/Anna.bio\nFile5=/a//Anna.bio\nFile6=~/x.bio\n")
        << anna << QByteArray();
    QTest::newRow("control characters")
        << QByteArray("[RecentBiorhythms]\nFile1=/a/\x1b[31m.bio\nFile2=/a/x\r\nFile3=/a/\xff.bio\n"
                      "File4=/a/Anna.bio\n")
        << anna << QByteArray();
    QTest::newRow("other kinds of values")
        << QByteArray("[Frame]\nPlace=@Variant(\\0\\0\\0\\x7f)\n[RecentBiorhythms]\n"
                      "File1=@Variant(\\0\\0\\0\\x9\\xff\\xff\\xff\\xff)\nFile2=/a/Anna.bio\n")
        << anna << QByteArray();
    QTest::newRow("an unknown section")
        << QByteArray("[Frame]\nPlace=eHk=\n[Other]\nPlace=eA==\nFile1=/b/x.bio\n"
                      "[RecentBiorhythms]\nFile1=/a/Anna.bio\n")
        << anna << QByteArray("xy");
    QTest::newRow("a place too long") << QByteArray("[Frame]\nPlace=" + QByteArray(100'000, 'A') +
                                                    "\n[RecentBiorhythms]\nFile1=/a/Anna.bio\n")
                                      << anna << QByteArray();

    QByteArray thousands = "[RecentBiorhythms]\n";
    for (int i = 0; i < 200'000; ++i) {
        thousands += "File=/home/x/" + QByteArray::number(10 - i) + ".bio\n";
    }
    QTest::newRow("thousands") << thousands << numbered(10, 3) << QByteArray();
}

void TestStateFile::damagedContents() {
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, files);
    QFETCH(QByteArray, place);
    const StateFixture fixture;
    fixture.write(contents);
    QCOMPARE(fixture.state.recentFiles(bio), files);
    QVERIFY(fixture.state.recentFiles(brs).isEmpty());
    QCOMPARE(fixture.state.framePlace(), place);

    // The next entry makes a sound file of it.
    fixture.state.addRecentFile(bio, u"/new.bio"_s);
    files.prepend(u"/new.bio"_s);
    QCOMPARE(fixture.state.recentFiles(bio), files.first(std::min<qsizetype>(files.size(), 8)));
    QVERIFY(QFileInfo(fixture.path()).size() < 1000);
}

void TestStateFile::whatIsNoFile() {
    const StateFixture fixture;
    QVERIFY(QDir().mkpath(fixture.path()));
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());

    // Whoever opens a pipe to read waits for the one who writes.
    QVERIFY(QDir().rmdir(fixture.path()));
    QCOMPARE(mkfifo(QFile::encodeName(fixture.path()).constData(), 0600), 0);
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
    QVERIFY(fixture.state.framePlace().isEmpty());

    // Nor does it make way for a file, whether it stands there or a link leads to it.
    const QByteArray path = QFile::encodeName(fixture.path());
    const QByteArray elsewhere = QFile::encodeName(fixture.folder() + u"/elsewhere"_s);
    const auto isPipe = [](const QByteArray& name) {
        struct stat found {};
        return stat(name.constData(), &found) == 0 && S_ISFIFO(found.st_mode);
    };
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    QVERIFY(isPipe(path));
    QVERIFY(QFile::rename(fixture.path(), QFile::decodeName(elsewhere)));
    QVERIFY(QFile::link(QFile::decodeName(elsewhere), fixture.path()));
    fixture.state.addRecentFile(bio, u"/a/Anna.bio"_s);
    QVERIFY(isPipe(elsewhere));
}

void TestStateFile::programsSideBySide() {
    const StateFixture fixture;
    const StateFile other(fixture.folder());
    fixture.state.addRecentFile(bio, u"/a/1.bio"_s);
    other.addRecentFile(bio, u"/a/2.bio"_s);
    other.addRecentFile(brs, u"/a/3.brs"_s);
    fixture.state.addRecentFile(bio, u"/a/4.bio"_s);
    other.saveFramePlace("there");
    fixture.state.removeRecentFile(bio, u"/a/1.bio"_s);
    for (const StateFile* program : {&fixture.state, &other}) {
        QCOMPARE(program->recentFiles(bio), (QStringList{u"/a/4.bio"_s, u"/a/2.bio"_s}));
        QCOMPARE(program->recentFiles(brs), QStringList{u"/a/3.brs"_s});
        QCOMPARE(program->framePlace(), "there");
    }
}

void TestStateFile::programsAtTheSameMoment() {
    const StateFixture fixture;
    const auto program = [&fixture](int first) {
        const StateFile state(fixture.folder());
        for (int i = first; i < first + 4; ++i) {
            state.addRecentFile(bio, u"/a/%1.bio"_s.arg(i));
        }
    };
    std::thread one(program, 1);
    std::thread two(program, 5);
    one.join();
    two.join();
    QStringList files = fixture.state.recentFiles(bio);
    files.sort();
    QCOMPARE(files, (QStringList{u"/a/1.bio"_s, u"/a/2.bio"_s, u"/a/3.bio"_s, u"/a/4.bio"_s,
                                 u"/a/5.bio"_s, u"/a/6.bio"_s, u"/a/7.bio"_s, u"/a/8.bio"_s}));
}

void TestStateFile::aLockThatIsNotGivenBack() {
    const StateFixture fixture;
    fixture.state.addRecentFile(bio, u"/a/1.bio"_s);
    QLockFile lock(fixture.path() + u".lock"_s);
    QVERIFY(lock.tryLock(0));
    QElapsedTimer timer;
    timer.start();
    fixture.state.addRecentFile(bio, u"/a/2.bio"_s);
    QVERIFY(timer.elapsed() < 3000);
    QCOMPARE(fixture.state.recentFiles(bio), QStringList{u"/a/1.bio"_s});
    lock.unlock();
    fixture.state.addRecentFile(bio, u"/a/3.bio"_s);
    QCOMPARE(fixture.state.recentFiles(bio), (QStringList{u"/a/3.bio"_s, u"/a/1.bio"_s}));
}

void TestStateFile::aFolderThatCannotBeMade() {
    const StateFixture fixture;
    QFile obstacle(fixture.home.filePath(u"state"_s));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    fixture.state.addRecentFile(bio, u"/a/1.bio"_s); // no warning, which would fail the test
    fixture.state.saveFramePlace("here");
    QVERIFY(fixture.state.recentFiles(bio).isEmpty());
    // Nor where the system itself refuses, whoever runs the test.
    StateFile(u"/proc/quor"_s).addRecentFile(bio, u"/a/1.bio"_s);
    StateFile(u"/proc"_s).addRecentFile(bio, u"/a/1.bio"_s);
}

void TestStateFile::nobodyElseReadsIt() {
    const StateFixture fixture;
    fixture.state.addRecentFile(bio, u"/a/1.bio"_s);
    QVERIFY(!QFileInfo(fixture.path()).permission(QFile::ReadGroup));
    QVERIFY(!QFileInfo(fixture.path()).permission(QFile::ReadOther));
    // Neither its lock nor what it was written into stays behind.
    QCOMPARE(QDir(fixture.folder()).entryList(QDir::Files), QStringList{u"stato.ini"_s});
}

} // namespace quor::test
