#include "system/FProj.h"

#include "system/SystemOperations.h"
#include "toolkit/Messages.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;

namespace quor {

FProj::FProj(Program& program, Frame& frame, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_frame(frame) {
    setObjectName(u"FProj"_s);
    setWindowTitle(u"Sistema corrente"_s);
    openSystem(m_program, m_frame);
}

void FProj::fillTree() {}

void FProj::addMember(const QString& name) {
    AppState& state = m_program.state;
    if (findSystemMember(state, name) >= 0) {
        showError(this,
                  u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s,
                  u"Errore"_s);
        return;
    }
    if (state.systemCount == std::numeric_limits<std::int16_t>::max()) {
        showOverflow(this);
        return;
    }
    state.systemMembers.resize(static_cast<std::size_t>(state.systemCount));
    state.systemMembers.push_back({name, m_program.biorhythm.birthDate});
    ++state.systemCount;
    showSystemStatus(m_program, m_frame);
}

void FProj::exportSystem() {}

void FProj::setUsable(Usable usable) {
    m_usable = usable;
}

void FProj::closeEvent(QCloseEvent* event) {
    if (ask(this,
            u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare "
            "ugualmente?"_s,
            u"Conferma"_s) == Answer::no) {
        event->ignore();
        return;
    }
    if (m_program.state.modified &&
        ask(this,
            u"Sono presenti dati non salvati. Si desidera salvare prima di chiudere il sistema ?"_s,
            u"Conferma"_s) == Answer::yes) {
        m_frame.run(Command::mnuSalvaSistema);
        if (m_program.state.modified) {
            // Not saved after all, by a fault or because the file dialog was cancelled: whoever
            // wanted to keep the data keeps the system.
            event->ignore();
            return;
        }
    }
    closeSystem(m_program, m_frame);
    ChildWindow::closeEvent(event);
}

} // namespace quor
