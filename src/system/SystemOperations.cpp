#include "system/SystemOperations.h"

#include "toolkit/CalculationDate.h"
#include "toolkit/Messages.h"

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

void setSystemCommandsEnabled(Frame& frame, bool enabled) {
    for (const CommandInfo& info : commandTable()) {
        if (info.needs == Needs::system) {
            frame.setCommandEnabled(info.command, enabled);
        }
    }
}

void setToolsEnabled(Frame& frame, std::initializer_list<Command> commands, bool enabled) {
    for (const ToolInfo& info : toolTable()) {
        if (!info.isSeparator() && std::ranges::find(commands, info.command) != commands.end()) {
            frame.setToolEnabled(info.position, enabled);
        }
    }
}

} // namespace

void openSystem(Program& program, Frame& frame) {
    program.state.systemOpen = true;
    frame.setMenuEnabled(Menu::mnuBioritmi, false);
    setSystemCommandsEnabled(frame, true);
    setToolsEnabled(frame, {Command::mnuSalvaSistema, Command::mnuOpzioni, Command::mnuEsporta},
                    true);
    setToolsEnabled(frame, {Command::mnuCalcola, Command::mnuApriBioritmo}, false);
}

void closeSystem(Program& program, Frame& frame) {
    for (const auto panel : {StatusPanel::person, StatusPanel::birth, StatusPanel::calculation}) {
        frame.setStatusPanel(panel, {});
    }
    frame.setMenuEnabled(Menu::mnuBioritmi, true);
    setSystemCommandsEnabled(frame, false);
    setToolsEnabled(frame, {Command::mnuSalvaSistema, Command::mnuOpzioni, Command::mnuEsporta},
                    false);
    setToolsEnabled(frame, {Command::mnuCalcola, Command::mnuApriBioritmo}, true);

    AppState& state = program.state;
    state.systemFilePath.clear();
    frame.closeBiorhythm(); // the person that it was computed for, its date and its options
    state.systemOpen = false;
    state.systemCount = 0;
    state.systemMembers.assign(1, {});
}

bool canAddMember(QWidget* parent, const Program& program, const QString& name) {
    if (findSystemMember(program.state, name) >= 0) {
        showError(parent,
                  u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s,
                  u"Errore"_s);
        return false;
    }
    if (program.state.systemCount == maximumMembers) {
        showOverflow(
            parent,
            u"Il sistema è pieno: contiene già %1 bioritmi. Rimuoverne uno prima di "
            "inserirne un altro, oppure inserirlo in un altro sistema."_s.arg(maximumMembers));
        return false;
    }
    return true;
}

void showSystemStatus(const Program& program, Frame& frame) {
    const AppState& state = program.state;
    if (!state.systemOpen) {
        return;
    }
    frame.setStatusPanel(StatusPanel::person, u"Nome: "_s + state.systemFilePath);
    frame.setStatusPanel(StatusPanel::birth, u"%1 bioritmi nel sistema"_s.arg(state.systemCount));
    showCalculationDate(frame, program.biorhythm.calculationDate);
}

} // namespace quor
