// Files that are named rather than asked for: at the start, the recent ones, and those dropped on
// the frame.

#include "shell/MDIForm1.h"

#include "shell/FileDrop.h"
#include "shell/RecentFiles.h"
#include "storage/BiorhythmFile.h"
#include "storage/SystemFile.h"
#include "toolkit/Messages.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

void MDIForm1::buildFileEntries() {
    const auto build = [this](FileKind kind, Menu menu) {
        auto* files =
            new RecentFiles(kind, m_stateFile, m_menus.at(static_cast<std::size_t>(menu)));
        connect(files, &RecentFiles::chosen, this,
                [this, kind](const QString& path) { openNamed(kind, path); });
        return files;
    };
    m_recentBiorhythms = build(FileKind::biorhythm, Menu::mnuBioritmi);
    m_recentSystems = build(FileKind::system, Menu::mnuFile);

    auto* drop = new FileDrop(this, [this](FileKind kind) { return canOpen(kind); });
    connect(drop, &FileDrop::dropped, this, [this](const QString& path) {
        activateWindow(); // the file manager is in front, and questions may come
        openNamed(fileKind(path), path);
    });
}

void MDIForm1::showFileEntryStates() {
    m_recentBiorhythms->setUsable(m_states.isCommandEnabled(Command::mnuApriBioritmo));
    m_recentSystems->setUsable(m_states.isCommandEnabled(Command::mnuApriSistema));
}

/// Whether the command that opens files of this kind could be chosen now.
bool MDIForm1::canOpen(FileKind kind) const {
    const Command command =
        kind == FileKind::system ? Command::mnuApriSistema : Command::mnuApriBioritmo;
    return !m_ending && isEnabled() && QApplication::activeModalWidget() == nullptr &&
           m_states.isCommandEnabled(command) && m_states.isMenuEnabled(commandInfo(command).menu);
}

/// The command that opens files of this kind, without its file dialog.
void MDIForm1::openNamed(FileKind kind, const QString& path) {
    if (!canOpen(kind)) {
        return; // no longer
    }
    openFile(kind, path);
    if (!QFileInfo(path).isFile()) {
        recentFiles(kind)->remove(path);
    }
}

/// Opens a file in the place of what is open. It is read first, so that one that cannot be read
/// closes nothing and asks nothing.
void MDIForm1::openFile(FileKind kind, const QString& path) {
    Program read;
    const bool mayBeSaved = m_program.state.modified;
    if (!readFile(kind, path, read) || !closedCurrent()) {
        return;
    }
    // What was closed may have been saved into this very file.
    if (mayBeSaved && !readFile(kind, path, read)) {
        return;
    }
    if (kind == FileKind::system) {
        takeSystemFile(std::move(read));
    } else {
        takeBiorhythmFile(read);
    }
}

/// Reads a file into fresh data. False after a box that says why it cannot be read.
bool MDIForm1::readFile(FileKind kind, const QString& path, Program& read) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path)) {
        showError(this, u"Il file \"%1\" non esiste."_s.arg(shown), u"Errore"_s);
        return false;
    }
    resetToStartUp(read);
    std::optional<QString> fault;
    switch (kind) {
    case FileKind::biorhythm:
        fault = readBiorhythmFile(path, read);
        break;
    case FileKind::system:
        fault = readSystemFile(path, read);
        break;
    case FileKind::other:
        fault = u"non è né un bioritmo (.bio) né un sistema (.brs)"_s;
        break;
    }
    if (fault) {
        showError(this, u"Il file \"%1\" non si può aprire:\n%2."_s.arg(shown, *fault),
                  u"Errore"_s);
    }
    return !fault;
}

RecentFiles* MDIForm1::recentFiles(FileKind kind) const {
    return kind == FileKind::system ? m_recentSystems : m_recentBiorhythms;
}

} // namespace quor
