// The commands of the menu of systems.

#include "shell/MDIForm1.h"

#include "shell/FIns.h"
#include "shell/RecentFiles.h"
#include "storage/SystemFile.h"
#include "system/FProj.h"
#include "system/SystemOperations.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/Messages.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

/// Closes the open system or else the biorhythm that is present, with their questions. False when
/// the user keeps it.
bool MDIForm1::closedCurrent() {
    if (!m_program.state.systemOpen) {
        return closedCurrentBiorhythm();
    }
    askToCloseSystem();
    return !m_program.state.systemOpen;
}

void MDIForm1::askToCloseSystem() {
    if (m_system != nullptr) {
        m_system->closeWindow();
    }
}

/// The window of the open system; making it opens the system.
FProj* MDIForm1::ensureSystemWindow() {
    if (m_system == nullptr) {
        m_system = new FProj(m_program, *this);
        connect(m_system, &ChildWindow::closed, this, [this] {
            m_system = nullptr;
            // The entry was to give the system a member. It is not gone yet once it has closed.
            if (m_newBiorhythm != nullptr && m_newBiorhythm->close()) {
                m_newBiorhythm = nullptr;
            }
            closeExportAndPrint();
        });
    }
    return m_system;
}

void MDIForm1::newSystem() {
    if (!closedCurrent()) {
        return;
    }
    resetWork(m_program); // the day may have changed since the start or the last closing
    showChild(ensureSystemWindow());
}

void MDIForm1::openSystemFile() {
    if (!closedCurrent()) {
        return;
    }
    const QString path = askFileToOpen(this, u"Apri"_s, u"Bioritmic Files (*.brs) | *.brs"_s,
                                       m_program.state.userFolder);
    if (!path.isEmpty()) {
        loadSystemFile(path);
    }
}

void MDIForm1::loadSystemFile(const QString& path) {
    Program read;
    if (readFile(FileKind::system, path, read)) {
        takeSystemFile(std::move(read));
    }
}

void MDIForm1::takeSystemFile(Program read) {
    takeSystem(std::move(read), m_program);
    recentFiles(FileKind::system)->add(m_program.state.systemFilePath);
    offerToday();
    showLoadedSystem();
}

void MDIForm1::showLoadedSystem() {
    FProj* window = ensureSystemWindow();
    window->fillTree();
    showChild(window);
    showSystemStatus(m_program, *this);
}

void MDIForm1::saveSystem() {
    const QString path = m_program.state.systemFilePath;
    if (path.isEmpty()) {
        saveSystemAs();
        return;
    }
    if (const auto failure = saveSystemFile(path, m_program)) {
        showError(this,
                  u"Errore imprevisto: il file \"%1\" non è stato salvato.\n%2"_s.arg(
                      QDir::toNativeSeparators(path), *failure),
                  u"Errore"_s);
        return;
    }
    recentFiles(FileKind::system)->add(path);
    showInformation(this, u"Sistema salvato"_s, u"Ok"_s);
}

void MDIForm1::saveSystemAs() {
    const QString path = askFileToSave(this, u"Salva"_s, u"Bioritmic Sistem (*.brs) | *.brs"_s,
                                       m_program.state.userFolder);
    if (path.isEmpty()) {
        return;
    }
    // A failure is not reported here, but `modified` then stays set: closing asks again.
    if (!saveSystemFile(path, m_program)) {
        recentFiles(FileKind::system)->add(path);
    }
    showInformation(this, u"File salvato"_s, u"Ok"_s);
}

} // namespace quor
