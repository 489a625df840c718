#pragma once

#include "core/Biorhythm.h"
#include "storage/RunLock.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Where work that no file holds waits for the next start, should the program end without asking.
///
/// Each run of the program that has such work has one file in the store's folder, "<run>.bio" or
/// "<run>.brs", and beside it "<run>.lock", locked while the run lives. The file begins as the
/// ordinary file of its kind does, which is where readers of that kind stop; three lines follow: a
/// mark, the path of the file that the work belongs to (percent-encoded) and a check sum. It takes
/// its place in one step, so that whoever looks finds it whole or not at all. It is not forced onto
/// the disk, for which the interface would wait: it outlives the program, not a power cut in the
/// next moments.
namespace quor {

/// What the program has open and no file holds.
struct UnsavedWork {
    bool isSystem = false;
    QByteArray content{}; ///< as saving would write it
    QString path{};       ///< of the file that it was loaded from; empty when there is none

    friend bool operator==(const UnsavedWork&, const UnsavedWork&) = default;
};

/// The whole file of a run.
[[nodiscard]] QByteArray sealedWork(const UnsavedWork& work);

/// The work in a file of a run; nothing when it is not whole. A path that is not absolute counts as
/// none.
[[nodiscard]] std::optional<UnsavedWork> unsealedWork(const QByteArray& file, bool isSystem);

/// Nothing without changes, without a biorhythm and for a system without members.
[[nodiscard]] std::optional<UnsavedWork> unsavedWork(const Program& program);

/// Whether the work of both is the same, or neither has any. For the largest system this takes a
/// fraction of the time of putting the work together. (It may say no where the files are the same.)
[[nodiscard]] bool isSameWork(const Program& one, const Program& other);

/// The work of a run that has ended without asking. While the object lives it is nobody else's.
struct LeftWork {
    UnsavedWork work{};
    QString file{};                ///< where it waits
    QDateTime changed{};           ///< when it was written, at most a few seconds after the change
    QString name{};                ///< of the person; empty for a system
    int members = 0;               ///< of the system
    bool fileIsNewer = false;      ///< its own file was written after it
    std::optional<RunLock> lock{}; ///< of the run that left it
    Program data{};                ///< what its file holds

    /// Takes it over as it was: its own file's path, and modified. Nothing may be open.
    void open(Program& program) const;
};

class RecoveryStore {
  public:
    /// The folder is made when there is something to write.
    explicit RecoveryStore(QString folder);

    /// Puts the run's work aside in the place of what it put there before; nothing is done when
    /// that is the same. False when it cannot be written: what was there before is there still.
    bool write(const UnsavedWork& work);

    /// The run has no such work any more.
    void clear();

    /// What ended runs have left.
    struct Left {
        std::vector<LeftWork> works; ///< the latest first
        QStringList damaged;         ///< new paths of files that are not whole, see `left`
    };

    /// Looks for the work of runs that have ended. Work that stands in its own file by now is
    /// forgotten, and so are remains without work. A file that is not whole is renamed, once and
    /// for all, and stays.
    [[nodiscard]] Left left() const;

    /// Work of another run becomes this run's own; it stays where it is and under lock.
    void adopt(LeftWork&& work);

    /// Forgets the work of another run.
    static void remove(LeftWork&& work);

  private:
    struct Run {
        QString name;
        RunLock lock;
        std::optional<UnsavedWork> written{};
    };

    [[nodiscard]] QString path(const QString& run, const QString& ending) const;
    [[nodiscard]] bool begin();

    QString m_folder;
    std::optional<Run> m_run; ///< while there is work
};

} // namespace quor
