#pragma once

#include <QDir>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The files that a monkey plays with, and what it types.
namespace quor::test {

class Playground {
  public:
    Playground();

    /// Holds everything. Nothing outside is named to the program.
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    /// A path without what differs from run to run.
    [[nodiscard]] QString nameOf(const QString& path) const {
        return QDir(m_folder.path()).relativeFilePath(path);
    }
    /// Where the program "lies": its user's folder is there.
    [[nodiscard]] QString programFolder() const { return path(QStringLiteral("programma")); }

    /// Every file the program may be asked to open: good, hostile, missing, a folder, a pipe.
    [[nodiscard]] const QStringList& toOpen() const { return m_toOpen; }
    /// Where the program may be asked to save.
    [[nodiscard]] const QStringList& toSave() const { return m_toSave; }
    /// Some of them good.
    [[nodiscard]] const QStringList& good() const { return m_good; }

    /// Throws away what runs have written and puts every file back as it was.
    void tidy();

    /// How the stand-in for the renderer ends from now on: "ok", "fail", "crash", "junk".
    void setRendering(const QByteArray& manner) const;

  private:
    void write(const QString& name, const QByteArray& content) const;

    QTemporaryDir m_folder;
    QStringList m_toOpen;
    QStringList m_toSave;
    QStringList m_good;
};

[[nodiscard]] const QStringList& names();
[[nodiscard]] const QStringList& dates();
[[nodiscard]] const QStringList& numbers();
[[nodiscard]] const QStringList& hostileTexts();

} // namespace quor::test
