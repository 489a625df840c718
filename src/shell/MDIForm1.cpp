#include "shell/MDIForm1.h"

#include "export/FEspBio.h"
#include "export/FStampaBio.h"
#include "guidance/FAbout.h"
#include "guidance/FProcGuid.h"
#include "shell/ApplicationSetup.h"
#include "shell/Folders.h"
#include "shell/FramePlace.h"
#include "shell/MaximisedChild.h"
#include "shell/Recovery.h"
#include "shell/TitleBarStyle.h"
#include "system/FProj.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/Messages.h"
#include "toolkit/SettingsStore.h"
#include "toolkit/ShowHelp.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QMenu>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace quor {

MDIForm1::MDIForm1(Program& program, const QString& programFolder, QWidget* parent)
    : QMainWindow(parent)
    , m_program(program)
    , m_stateFile(stateFolder())
    , m_area(new QMdiArea(this))
    , m_maximisedChild(new MaximisedChild(m_area))
    , m_titleBarStyle(new TitleBarStyle(m_area))
    , m_recovery(new Recovery(program, QDir(stateFolder()).filePath(u"recupero"_s), this)) {
    resetToStartUp(m_program);

    setObjectName(u"MDIForm1"_s);
    setWindowTitle(u"Quor"_s);
    setContextMenuPolicy(Qt::NoContextMenu); // nobody hides the toolbar by accident
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setAccessibleName(u"Finestre"_s);
    setCentralWidget(m_area);
    buildMenus();
    buildFileEntries();
    buildToolbar();
    buildStatusBar();
    buildPopup();
    buildChildKeys();
    showCommandStates();
    restorePlace(*this, m_stateFile);

    const Folders folders = prepareFolders(programFolder);
    m_program.state.userFolder = folders.userFiles;
    m_program.state.exportFolder = folders.exports;
    m_program.state.fastStart = readFastStart();
}

MDIForm1::~MDIForm1() {
    savePlace(*this, m_stateFile);
    m_ending = true;
    delete m_tour; // it unlocks the commands
    // A run that goes on in them enables the frame again.
    delete m_export;
    delete m_print;
}

QAction* MDIForm1::action(Command command) const {
    return m_actions.at(static_cast<std::size_t>(command));
}

bool MDIForm1::recovered() {
    switch (m_recovery->offer(this)) {
    case Recovery::Taken::nothing:
        return false;
    case Recovery::Taken::biorhythm:
        applyBiorhythm();
        break;
    case Recovery::Taken::system:
        showLoadedSystem();
        break;
    }
    return true;
}

void MDIForm1::keepUnsavedWork() {
    m_recovery->keep();
}

void MDIForm1::start(const StartRequest& request) {
    const bool hasWork = recovered();
    switch (request.mode) {
    case StartMode::commandLineText: {
        const QString path = pathInCommandLineText(request.text);
        if (QFileInfo::exists(path) && fileKind(path) != FileKind::other) {
            openFile(fileKind(path), path);
        }
        break;
    }
    case StartMode::openFile:
        openFile(fileKind(request.text), QFileInfo(request.text).absoluteFilePath());
        break;
    case StartMode::plain:
        if (!hasWork && m_program.state.fastStart != u"FALSE"_s) {
            showFastStart();
        }
        break;
    default:
        break;
    }
}

void MDIForm1::choose(Command command) {
    if (isEnabled() && QApplication::activeModalWidget() == nullptr) {
        run(command);
    }
}

void MDIForm1::run(Command command) {
    switch (command) {
    case Command::mnuNuovoSistema:
        newSystem();
        break;
    case Command::mnuApriSistema:
        openSystemFile();
        break;
    case Command::mnuSalvaSistema:
        saveSystem();
        break;
    case Command::mnuSalvaSistemaConNome:
        saveSystemAs();
        break;
    case Command::mnuChiudiSistema:
        askToCloseSystem();
        break;
    case Command::mnuEsportaSistema:
        if (m_system != nullptr) {
            m_system->exportSystem();
        }
        break;
    case Command::mnuCalcola:
        newBiorhythm();
        break;
    case Command::mnuApriBioritmo:
        openBiorhythm();
        break;
    case Command::mnuSalvaBioritmo:
        saveBiorhythm();
        break;
    case Command::mnuSalvaConNome:
        saveBiorhythmAs();
        break;
    case Command::mnuChiudiBioritmo:
        askToCloseBiorhythm();
        break;
    case Command::mnuGrafico:
    case Command::mnuStatoSettimanale:
    case Command::mnuStatoOdierno:
    case Command::mnuPrevisioni:
        openView(command);
        break;
    case Command::mnuSpostaDataDiCalcolo:
        moveCalculationDate();
        break;
    case Command::graphOptions:
        openGraphOptions();
        break;
    case Command::weeklyOptions:
        openWeeklyOptions();
        break;
    case Command::mnuAnteprimaDiStampa:
        showPrint(PrintMode::preview);
        break;
    case Command::mnuStampa:
        showPrint(PrintMode::print);
        break;
    case Command::mnuEsporta:
        if (m_program.state.systemOpen) {
            showInformation(this, u"Attualmente non disponibile."_s, u"Non disponibile"_s);
        } else {
            showExport(u"Esporta bioritmo di "_s + m_program.biorhythm.name);
        }
        break;
    case Command::mnuHlpCompleto:
        ShowHelp(this, helpPath());
        break;
    case Command::mnuProcedureGuidate:
        showFastStart();
        break;
    case Command::mnuAbout:
        (new FAbout(QString::fromLatin1(version()), this))->open();
        break;
    case Command::mnuOpzioniSistema:
    case Command::mnuOpzioni:
        openOptions();
        break;
    case Command::mnuWinArrHor:
    case Command::mnuWinArrVer:
    case Command::mnuWinArrCas:
    case Command::mnuWinArrIco:
        arrangeChildren(command);
        break;
    case Command::mnuEsci:
    case Command::mnuEsci2:
        quit();
        break;
    }
}

void MDIForm1::setCommandEnabled(Command command, bool enabled) {
    m_states.setCommandEnabled(command, enabled);
    showCommandStates();
}

void MDIForm1::setMenuEnabled(Menu menu, bool enabled) {
    m_states.setMenuEnabled(menu, enabled);
    showCommandStates();
}

void MDIForm1::setToolEnabled(int position, bool enabled) {
    m_states.setToolEnabled(position, enabled);
    showCommandStates();
}

void MDIForm1::showCommandStates() {
    for (const CommandInfo& info : commandTable()) {
        action(info.command)->setEnabled(m_states.isCommandEnabled(info.command));
    }
    showFileEntryStates();
    for (const ToolInfo& info : toolTable()) {
        if (!info.isSeparator()) {
            m_tools.at(info.index())->setEnabled(m_states.isToolEnabled(info.position));
        }
    }
    for (const MenuInfo& info : menuTable()) {
        // The menu itself and not its entry in the bar, which forgets its state when the whole
        // frame is disabled and enabled again.
        m_menus.at(static_cast<std::size_t>(info.menu))
            ->setEnabled(m_states.isMenuEnabled(info.menu));
    }
    m_popup->findChild<QAction*>(u"mnuPopOpt"_s)->setEnabled(!m_states.isLocked());
}

void MDIForm1::setToolbarEnabled(bool enabled) {
    m_toolbar->setEnabled(enabled);
}

void MDIForm1::setStatusPanel(StatusPanel panel, const QString& text) {
    m_panels.at(static_cast<std::size_t>(panel) - 1)->setFullText(text);
}

/// The close box and the control menu: what is asked and whether the program ends is the quit
/// command's affair; the request itself never closes the frame.
void MDIForm1::closeEvent(QCloseEvent* event) {
    event->ignore();
    // While an export or a print has taken the frame or the system over, its own window is the one
    // to close.
    if (!m_ending && isEnabled() && !m_program.state.exportWholeSystem) {
        quit();
    }
}

void MDIForm1::quit() {
    const AppState& state = m_program.state;
    const bool hasData = state.systemOpen ? state.systemCount > 0 : m_program.biorhythm.isPresent();
    if (hasData && !closedCurrent()) {
        return;
    }
    end();
}

void MDIForm1::end() {
    m_ending = true;
    m_recovery->forget();
    if (m_tour != nullptr) {
        m_tour->close();
    }
    emit ended();
}

} // namespace quor
