// Files that are named rather than asked for: the recent ones, and those dropped on the frame.

#include "shell/MDIForm1.h"

#include "shell/FileDrop.h"
#include "shell/RecentFiles.h"
#include "toolkit/Messages.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

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
    if (!QFileInfo(path).isFile()) {
        showError(this, u"Il file \"%1\" non esiste."_s.arg(QDir::toNativeSeparators(path)),
                  u"Errore"_s);
        recentFiles(kind)->remove(path);
    } else if (kind == FileKind::system) {
        if (closedCurrent()) {
            loadSystemFile(path);
        }
    } else if (closedCurrentBiorhythm()) {
        loadBiorhythmFile(path);
    }
}

RecentFiles* MDIForm1::recentFiles(FileKind kind) const {
    return kind == FileKind::system ? m_recentSystems : m_recentBiorhythms;
}

/// A file that was opened or saved. Opening does not say whether the file could be read.
void MDIForm1::remember(FileKind kind, const QString& path) {
    const QFileInfo file(path);
    if (file.isFile() && file.isReadable()) {
        recentFiles(kind)->add(path);
    }
}

} // namespace quor
