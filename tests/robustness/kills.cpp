// Ends a program by kill -9 at random moments while it saves, over and over, and looks at the file
// that it leaves: the old one or the new one, whole.
//
//   kills [TIMES]     saves killed while they are under way, 1000 if not said
//
// The last line is the figure.

#include "core/Biorhythm.h"
#include "export/ExportPng.h"
#include "export/SummaryPage.h"
#include "shell/StateFile.h"
#include "storage/BiorhythmFile.h"
#include "storage/RecoveryStore.h"
#include "storage/SystemFile.h"
#include "storage/WholeFile.h"
#include "toolkit/SettingsStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <new>
#include <random>
#include <vector>

#include <csignal>
#include <sched.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quor;

namespace {

/// Where a saving process is, seen from outside, also when it is dead.
enum class Phase : int { waiting, saving, saved, failed };
using SharedPhase = std::atomic<Phase>;
static_assert(SharedPhase::is_always_lock_free);

SharedPhase& sharedPhase() {
    void* memory = mmap(nullptr, sizeof(SharedPhase), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        std::abort();
    }
    return *new (memory) SharedPhase(Phase::waiting);
}

/// A file that is saved now with one content and now with another.
struct Saving {
    const char* name = nullptr;
    int share = 0; ///< of a hundred kills
    /// Saves the content of this number; false on failure.
    std::function<bool(int)> save;
    /// What lies there. Compared as a whole.
    std::function<QByteArray()> look;
};

struct Figure {
    int inside = 0; ///< kills while the save was under way
    int late = 0;   ///< and those that came after it, which are looked at as well
    int old = 0;
    int fresh = 0;
    int mixed = 0;
    int gone = 0;
    int unfinished = 0; ///< files that a killed save has left beside

    Figure& operator+=(const Figure& other) {
        inside += other.inside;
        late += other.late;
        old += other.old;
        fresh += other.fresh;
        mixed += other.mixed;
        gone += other.gone;
        unfinished += other.unfinished;
        return *this;
    }
};

/// The random moments of the kills, after the beginning of a save, spread over a little more than
/// the time that a save takes just now: other programs may make it longer.
class Moments {
  public:
    [[nodiscard]] useconds_t next() {
        return static_cast<useconds_t>(
            std::uniform_real_distribution<double>(0, m_longest)(m_random));
    }
    /// Four kills in five are to come while a save is under way.
    void learn(bool inside) {
        constexpr double longer = 1.02;
        constexpr double shorter = 0.92;
        m_longest = std::clamp(m_longest * (inside ? longer : shorter), 50.0, 50'000.0);
    }

  private:
    double m_longest = 500;          // microseconds
    std::mt19937 m_random{20261121}; // NOLINT(cert-msc51-cpp): the same ones each time
};

/// A process that does something in between of which it is to be killed.
class Victim {
  public:
    /// @param task calls what it is given when the save begins; false when it failed
    Victim(SharedPhase& phase, const std::function<bool(const std::function<void()>&)>& task)
        : m_phase(phase) {
        m_phase = Phase::waiting;
        m_child = fork();
        if (m_child == 0) {
            const bool done = task([this] { m_phase = Phase::saving; });
            m_phase = done ? Phase::saved : Phase::failed;
            _exit(0);
        }
        while (m_phase == Phase::waiting) {
            sched_yield();
        }
    }
    /// @return whether the save was under way
    [[nodiscard]] bool killAfter(useconds_t moment) const {
        usleep(moment);
        ::kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
        if (m_phase == Phase::failed) {
            std::fputs("a save failed\n", stderr);
            std::exit(2);
        }
        return m_phase == Phase::saving;
    }

  private:
    SharedPhase& m_phase;
    pid_t m_child = -1;
};

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString nameOfNumber(int number) {
    return number % 2 == 0 ? u"Maria"_s : u"Bartolomeo Giovanbattista"_s;
}

Program personProgram(int number) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = nameOfNumber(number);
    program.biorhythm.birthDate = 30000 + number;
    program.biorhythm.calculationDate = 40000;
    program.state.modified = true;
    return program;
}

Program systemProgram(int number) {
    Program program = personProgram(number);
    const int count = number % 2 == 0 ? 6000 : 9000;
    program.state.systemMembers.assign(static_cast<std::size_t>(count),
                                       {.name = nameOfNumber(number), .birthDate = 30000});
    program.state.systemCount = static_cast<std::int16_t>(count);
    program.state.systemOpen = true;
    return program;
}

/// Both contents of a file as they lie there when nothing is killed.
std::array<QByteArray, 2> contents(const Saving& saving) {
    std::array<QByteArray, 2> both;
    for (int number : {0, 1}) {
        if (!saving.save(number)) {
            std::fprintf(stderr, "%s: cannot be saved at all\n", saving.name);
            std::exit(2);
        }
        both.at(static_cast<std::size_t>(number)) = saving.look();
    }
    if (both[0] == both[1] || both[0].isEmpty()) {
        std::fprintf(stderr, "%s: both contents are the same\n", saving.name);
        std::exit(2);
    }
    return both;
}

int removeUnfinished(const QString& folder) {
    int count = 0;
    QDir place(folder);
    for (const QString& name : place.entryList(QDir::Files | QDir::Hidden)) {
        // "file.bio" is kept and "file.bio.XXXXXX" is not. A lock that nobody holds any more has to
        // be got over.
        if (name.count(u'.') > 1 && !name.endsWith(u".lock"_s)) {
            count += place.remove(name) ? 1 : 0;
        }
    }
    return count;
}

/// Until so many saves were killed under way, or it does not come to that.
bool goesOn(const Figure& figure, int wanted) {
    constexpr int patience = 20;
    return figure.inside < wanted && figure.late < patience * wanted;
}

Figure killSaves(SharedPhase& phase, const QString& folder, const Saving& saving, int wanted) {
    Figure figure;
    Moments moments;
    const auto both = contents(saving);
    int now = 1;
    while (goesOn(figure, wanted)) {
        const Victim victim(phase, [&saving, now](const std::function<void()>& begin) {
            begin();
            return saving.save(1 - now);
        });
        const bool inside = victim.killAfter(moments.next());
        moments.learn(inside);
        ++(inside ? figure.inside : figure.late);
        const QByteArray found = saving.look();
        if (found == both.at(static_cast<std::size_t>(now))) {
            ++(inside ? figure.old : figure.mixed); // what was saved is there
        } else if (found == both.at(static_cast<std::size_t>(1 - now))) {
            figure.fresh += inside ? 1 : 0;
            now = 1 - now;
        } else {
            ++(found.isEmpty() ? figure.gone : figure.mixed);
            saving.save(now);
        }
        figure.unfinished += removeUnfinished(folder);
    }
    return figure;
}

std::vector<Saving> savings(const QString& folder) {
    const QDir place(folder);
    const auto plain = [](const QString& path) { return [path] { return bytesOf(path); }; };
    std::vector<Saving> all;

    const QString bio = place.filePath(u"persona.bio"_s);
    all.push_back({.name = "bio",
                   .share = 20,
                   .save =
                       [bio](int number) {
                           Program program = personProgram(number);
                           return !saveBiorhythmFile(bio, program);
                       },
                   .look = plain(bio)});

    const QString brs = place.filePath(u"sistema.brs"_s);
    all.push_back(
        {.name = "brs",
         .share = 30,
         .save =
             [brs, programs = std::array{systemProgram(0), systemProgram(1)}](int number) mutable {
                 return !saveSystemFile(brs, programs.at(static_cast<std::size_t>(number)));
             },
         .look = plain(brs)});

    const QString png = place.filePath(u"grafico.png"_s);
    std::array<QImage, 2> images{QImage(500, 300, QImage::Format_RGB32),
                                 QImage(700, 400, QImage::Format_RGB32)};
    images[0].fill(Qt::blue);
    images[1].fill(Qt::red);
    all.push_back({.name = "png",
                   .share = 10,
                   .save =
                       [png, images](int number) {
                           return ExportPng(images.at(static_cast<std::size_t>(number)), png) ==
                                  pngWritten;
                       },
                   .look = plain(png)});

    const QString page = place.filePath(u"Riepilogo.html"_s);
    all.push_back({.name = "page",
                   .share = 10,
                   .save =
                       [page](int number) {
                           const QByteArray bytes =
                               summaryPage(personProgram(number).biorhythm, {.graph = true}, u"p"_s,
                                           PageVariant::screen);
                           return !writeWholeFile(page, bytes);
                       },
                   .look = plain(page)});

    // Where the toolkit keeps settings is said by the environment.
    const QString settings = place.filePath(u"quor.ini"_s);
    all.push_back({.name = "settings",
                   .share = 10,
                   .save =
                       [](int number) {
                           return saveSetting(u"Options"_s, u"FastStart"_s,
                                              number == 0 ? u"TRUE"_s : u"FALSE"_s);
                       },
                   .look = plain(settings)});

    all.push_back({.name = "state",
                   .share = 10,
                   .save =
                       [folder](int number) {
                           const StateFile state(folder);
                           state.saveFramePlace(QByteArray(300, number == 0 ? 'a' : 'b'));
                           return state.framePlace()[0] == (number == 0 ? 'a' : 'b');
                       },
                   .look = plain(place.filePath(u"stato.ini"_s))});
    return all;
}

/// Work put aside belongs to its run, and is found when that has ended.
Figure killRecovery(SharedPhase& phase, const QString& folder, int wanted) {
    Figure figure;
    Moments moments;
    const std::array works{*unsavedWork(systemProgram(0)), *unsavedWork(systemProgram(1))};
    while (goesOn(figure, wanted)) {
        const Victim victim(phase, [&](const std::function<void()>& begin) {
            RecoveryStore store(folder);
            const bool first = store.write(works[0]);
            begin();
            if (!first || !store.write(works[1])) {
                return false;
            }
            phase = Phase::saved;
            _exit(0); // or the store would say that all is well
        });
        const bool inside = victim.killAfter(moments.next());
        moments.learn(inside);
        ++(inside ? figure.inside : figure.late);
        figure.unfinished +=
            static_cast<int>(QDir(folder).entryList({u"*.new"_s}, QDir::Files).size());
        RecoveryStore::Left left = RecoveryStore(folder).left();
        figure.mixed += static_cast<int>(left.damaged.size());
        if (left.works.size() != 1) {
            ++figure.gone;
            continue;
        }
        const QByteArray& content = left.works[0].work.content;
        if (content == works[0].content) {
            ++(inside ? figure.old : figure.mixed);
        } else if (content == works[1].content) {
            figure.fresh += inside ? 1 : 0;
        } else {
            ++figure.mixed;
        }
        RecoveryStore::remove(std::move(left.works[0]));
    }
    return figure;
}

void tell(const char* name, const Figure& figure) {
    std::printf("%-9s %5d saves killed, %4d more just after: %5d old, %4d new, %d mixed, %d gone; "
                "%d unfinished files beside\n",
                name, figure.inside, figure.late, figure.old, figure.fresh, figure.mixed,
                figure.gone, figure.unfinished);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    const QCoreApplication application(argc, argv);
    constexpr int usualTimes = 1000;
    const int times = argc > 1 ? QByteArray(argv[1]).toInt() : usualTimes;

    SharedPhase& phase = sharedPhase();
    Figure sum;
    const auto add = [&sum](const char* name, const Figure& figure) {
        tell(name, figure);
        sum += figure;
    };
    for (const Saving& saving : savings(home.path())) {
        add(saving.name, killSaves(phase, home.path(), saving, times * saving.share / 100));
    }
    constexpr int recoveryShare = 10;
    add("recovery", killRecovery(phase, home.filePath(u"recupero"_s), times * recoveryShare / 100));

    std::printf("%d saves killed: %d old, %d new, %d mixed, %d gone\n", sum.inside, sum.old,
                sum.fresh, sum.mixed, sum.gone);
    const bool struck = times > 0 && sum.inside >= times * 9 / 10;
    return struck && sum.mixed + sum.gone == 0 ? 0 : 1;
}
