#pragma once

#include "storage/FileKind.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace quor {

/// What the program remembers by itself from one run to the next: the files last used and the place
/// of the frame. It is only memory: whatever is missing or damaged counts as never remembered, and
/// a folder that cannot be written is passed over in silence.
///
/// A text file of its own beside the settings store. Nothing is held between two calls: each change
/// reads the file again under a lock, so that programs running side by side keep each other's
/// entries, and replaces it as a whole.
class StateFile {
  public:
    /// As many files of a kind are remembered.
    static constexpr qsizetype recentCount = 8;

    /// "stato.ini" in the folder, which is made with the first entry.
    explicit StateFile(const QString& folder);

    /// Absolute paths, the newest first; whether the files are still there is not looked at.
    [[nodiscard]] QStringList recentFiles(FileKind kind) const;
    /// The file becomes the newest. A path that no line can hold (a control character in it) is not
    /// remembered.
    void addRecentFile(FileKind kind, const QString& path) const;
    void removeRecentFile(FileKind kind, const QString& path) const;
    void clearRecentFiles(FileKind kind) const;

    /// The frame's place as the toolkit tells it; empty when there is none.
    [[nodiscard]] QByteArray framePlace() const;
    void saveFramePlace(const QByteArray& place) const;

    /// Everything that the file holds.
    struct Contents {
        QByteArray framePlace{};
        QStringList biorhythms{};
        QStringList systems{};

        [[nodiscard]] QStringList& files(FileKind kind);
        bool operator==(const Contents&) const = default;
    };

    /// What the bytes of a file say, as far as it can be used: not more files than are remembered,
    /// no path that no line can hold.
    [[nodiscard]] static Contents parsed(const QByteArray& bytes);
    /// The bytes of a file that says so.
    [[nodiscard]] static QByteArray written(const Contents& contents);

  private:
    [[nodiscard]] Contents read() const;
    void write(const Contents& contents) const;
    void change(const std::function<void(Contents&)>& edit) const;

    QString m_path;
};

} // namespace quor
