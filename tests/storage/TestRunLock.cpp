#include "storage/TestRunLock.h"

#include "storage/RunLock.h"

#include "storage/Files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>

#include <chrono>
#include <csignal>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestRunLock::oneHolderAtATime() {
    const Files files;
    const QString path = files.path(u"lock"_s);
    auto first = RunLock::take(path);
    QVERIFY(first);
    QVERIFY(!RunLock::take(path));
    auto moved = std::move(first);
    QVERIFY(!RunLock::take(path));
    moved.reset();
    QVERIFY(RunLock::take(path));
}

void TestRunLock::waitingForAnother() {
    using namespace std::chrono_literals;
    const Files files;
    const QString path = files.path(u"lock"_s);
    auto first = RunLock::take(path);
    QVERIFY(first);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!RunLock::wait(path, 50ms));
    QVERIFY(timer.elapsed() >= 50);
    std::thread other([&first] {
        std::this_thread::sleep_for(30ms);
        first->removeFile();
        first.reset();
    });
    const auto second = RunLock::wait(path, 10s);
    other.join();
    QVERIFY(second);
    QVERIFY(QFileInfo::exists(path));
    // Nobody gives back what cannot be made.
    timer.start();
    QVERIFY(!RunLock::wait(files.path(u"no/such/lock"_s), 10s));
    QVERIFY(timer.elapsed() < 5000);
}

void TestRunLock::aRemovedFileIsMadeAnew() {
    const Files files;
    const QString path = files.path(u"lock"_s);
    auto first = RunLock::take(path);
    QVERIFY(first);
    first->removeFile();
    QVERIFY(!QFileInfo::exists(path));
    const auto second = RunLock::take(path);
    QVERIFY(second);
    QVERIFY(!RunLock::take(path));
    first.reset();
    QVERIFY(!RunLock::take(path));
    QVERIFY(QFileInfo::exists(path));
}

void TestRunLock::onlyTheUserMayReadIt() {
    const Files files;
    const QString path = files.path(u"lock"_s);
    const auto lock = RunLock::take(path);
    QCOMPARE(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
}

void TestRunLock::whereNoFileCanBeMade() {
    const Files files;
    QVERIFY(!RunLock::take(files.path(u"missing/lock"_s)));
    QVERIFY(QDir().mkdir(files.path(u"folder"_s)));
    QVERIFY(!RunLock::take(files.path(u"folder"_s)));
    QVERIFY(QFile::link(files.write("elsewhere"), files.path(u"link"_s)));
    QVERIFY(!RunLock::take(files.path(u"link"_s)));
    const QByteArray pipe = QFile::encodeName(files.path(u"pipe"_s));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    QVERIFY(!RunLock::take(files.path(u"pipe"_s)));
    struct stat found {};
    QCOMPARE(lstat(pipe.constData(), &found), 0);
}

void TestRunLock::startedProgramsDoNotHoldIt() {
    const Files files;
    const QString path = files.path(u"lock"_s);
    auto lock = RunLock::take(path);
    QVERIFY(lock);
    QProcess other;
    other.start(u"sleep"_s, {u"60"_s});
    QVERIFY(other.waitForStarted());
    lock.reset();
    QVERIFY(RunLock::take(path));
    other.kill();
    QVERIFY(other.waitForFinished());
}

void TestRunLock::itGoesWithItsProcess() {
    const Files files;
    const QString path = files.path(u"lock"_s);
    std::array<int, 2> ends{};
    QCOMPARE(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto lock = RunLock::take(path);
        const char taken = lock ? 1 : 0;
        [[maybe_unused]] const auto written = write(ends[1], &taken, 1);
        pause();
        _exit(0);
    }
    char taken = 0;
    QCOMPARE(read(ends[0], &taken, 1), 1);
    QCOMPARE(taken, char{1});
    QVERIFY(!RunLock::take(path));
    kill(child, SIGKILL);
    QCOMPARE(waitpid(child, nullptr, 0), child);
    QVERIFY(RunLock::take(path));
    close(ends[0]);
    close(ends[1]);
}

} // namespace quor::test
