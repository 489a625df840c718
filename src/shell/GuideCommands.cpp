// The fast-start window, and what a guided tour asks of the frame.

#include "shell/MDIForm1.h"

#include "guidance/FFastStart.h"
#include "guidance/FOpt.h"
#include "guidance/FProcGuid.h"
#include "shell/FIns.h"
#include "shell/ToolHighlight.h"
#include "system/FProj.h"
#include "toolkit/Messages.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

void MDIForm1::showFastStart() {
    if (refusedByTour()) {
        return;
    }
    const bool isNew = m_fastStart == nullptr;
    if (isNew) {
        m_fastStart = new FFastStart(m_program, *this);
        connect(m_fastStart, &ChildWindow::closed, this, [this] { m_fastStart = nullptr; });
    }
    showChild(m_fastStart);
    if (isNew) {
        QWidget* window = m_fastStart->parentWidget();
        // A small frame scrolls rather than hiding the choices.
        window->resize(window->size().expandedTo(window->minimumSizeHint()));
        const QRect area = m_area->viewport()->rect();
        const QRect centred =
            QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, window->size(), area);
        window->move(std::max(0, centred.left()), std::max(0, centred.top()));
    }
}

/// True, with a message, while a guided tour is running.
bool MDIForm1::refusedByTour() {
    if (m_program.state.guidedProcedureActive == 0) {
        return false;
    }
    showWarning(this,
                u"E' in corso un altra procedura guidata!\n"
                "Si prega di completare prima la procedura corrente prima di continuare."_s,
                u"Avviso"_s);
    return true;
}

void MDIForm1::startTour(std::uint8_t number) {
    if (refusedByTour()) {
        return;
    }
    m_program.state.guidedProcedureActive = number;
    m_tour = new FProcGuid(m_program, *this, this);
    connect(m_tour, &QDialog::finished, this, &MDIForm1::tourEnded);
    m_tour->show();
}

/// The dialog for a new biorhythm may still be open: without the tour it keeps the frame waiting as
/// it always does, since what it brings takes the place of the current biorhythm.
void MDIForm1::tourEnded() {
    if (m_newBiorhythm != nullptr && m_newBiorhythm->isVisible() && !m_program.state.systemOpen &&
        !m_ending) {
        m_newBiorhythm->hide();
        m_newBiorhythm->open();
    }
}

void MDIForm1::lockCommands(const TourLock& lock) {
    m_states.lock(lock.allowed);
    showCommandStates();
    highlight(lock.highlighted);
    setOptionsUsable(false);
    if (m_system != nullptr) {
        m_system->setUsable(lock.insertMembers ? FProj::Usable::insertion : FProj::Usable::nothing);
    }
}

void MDIForm1::unlockCommands() {
    m_states.unlock();
    showCommandStates();
    highlight({});
    setOptionsUsable(true);
    if (m_system != nullptr) {
        m_system->setUsable(FProj::Usable::everything);
    }
}

/// The options window may have been open before the lock.
void MDIForm1::setOptionsUsable(bool usable) {
    if (m_options != nullptr) {
        m_options->parentWidget()->setEnabled(usable);
    }
}

/// Frames the toolbar buttons of these commands, and no others.
void MDIForm1::highlight(std::span<const Command> commands) {
    for (ToolHighlight* frame : m_highlights) {
        delete frame;
    }
    m_highlights.clear();
    for (const ToolInfo& info : toolTable()) {
        if (!info.isSeparator() && std::ranges::find(commands, info.command) != commands.end()) {
            QAction* tool = m_tools.at(info.index());
            m_highlights.push_back(new ToolHighlight(m_toolbar->widgetForAction(tool)));
        }
    }
}

bool MDIForm1::openForTour(Command command) {
    const FProj* previous = m_system;
    run(command);
    if (command == Command::mnuCalcola) {
        return !m_program.state.systemOpen && m_newBiorhythm != nullptr &&
               m_newBiorhythm->isVisible();
    }
    if (m_system == nullptr || m_system == previous) {
        return false;
    }
    if (m_tour != nullptr) {
        connect(m_system, &ChildWindow::closed, m_tour, &FProcGuid::systemClosed);
    }
    return true;
}

} // namespace quor
