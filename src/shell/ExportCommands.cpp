// The windows that export and print, and what is locked while they work.

#include "shell/MDIForm1.h"

#include "export/FEspBio.h"
#include "export/FStampaBio.h"
#include "shell/FIns.h"
#include "system/FProj.h"
#include "toolkit/WindowTitle.h"

#include <QMdiArea>

namespace quor {

namespace {

/// Shows a window that stands beside the frame. The frame may be disabled by then, and its dialogs
/// with it.
void bringUp(QWidget* window) {
    window->setEnabled(true);
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace

void MDIForm1::showExport(const QString& caption) {
    if (m_export == nullptr) {
        m_export = new FEspBio(m_program, *this, this);
        connect(m_export, &QDialog::finished, this, [this] {
            m_export = nullptr;
            unlock();
        });
    }
    setTitle(*m_export, caption);
    if (m_program.state.exportWholeSystem) {
        // What would close or change the system meanwhile, from windows that are open too.
        m_area->setEnabled(false);
        setCommandEnabled(Command::mnuProcedureGuidate, false);
        if (m_newBiorhythm != nullptr) {
            m_newBiorhythm->setEnabled(false);
        }
    }
    bringUp(m_export);
}

void MDIForm1::showPrint(PrintMode mode) {
    if (m_print != nullptr) {
        m_print->close(); // made for the other purpose, or for another biorhythm
    }
    m_print = new FStampaBio(m_program, *this, mode, this);
    connect(m_print, &QDialog::finished, this, [this] {
        m_print = nullptr;
        unlock();
    });
    bringUp(m_print);
}

/// Closing the biorhythm or the system closes the windows that export and print it.
void MDIForm1::closeExportAndPrint() {
    if (m_export != nullptr) {
        m_export->close();
    }
    if (m_print != nullptr) {
        m_print->close();
    }
}

/// Gives back what the system window locks for an export or a print. Called when that is over; a
/// run of the one goes on when the other is closed.
void MDIForm1::unlock() {
    if (m_export != nullptr || m_print != nullptr) {
        return;
    }
    setEnabled(true);
    m_area->setEnabled(true);
    setCommandEnabled(Command::mnuProcedureGuidate, true);
    setMenuEnabled(Menu::mnuFile, true);
    setToolbarEnabled(true);
    m_program.state.exportWholeSystem = false;
    if (m_newBiorhythm != nullptr) {
        m_newBiorhythm->setEnabled(true);
    }
    if (m_system != nullptr) {
        m_system->unlock();
    }
}

} // namespace quor
