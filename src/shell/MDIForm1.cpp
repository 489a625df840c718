#include "shell/MDIForm1.h"

#include "export/FEspBio.h"
#include "export/FStampaBio.h"
#include "guidance/FAbout.h"
#include "guidance/FFastStart.h"
#include "guidance/FOpt.h"
#include "guidance/FProcGuid.h"
#include "shell/ApplicationSetup.h"
#include "shell/ChildArrangement.h"
#include "shell/FIns.h"
#include "shell/Folders.h"
#include "shell/FramePlace.h"
#include "shell/Recovery.h"
#include "shell/StatusLabel.h"
#include "shell/TitleBarStyle.h"
#include "system/FProj.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ImageList.h"
#include "toolkit/Messages.h"
#include "toolkit/SettingsStore.h"
#include "toolkit/ShowHelp.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FStat.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphSet.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize toolPictureSize(24, 24);

/// The toolkit's Italian gives one access key to three entries of a window's own menu.
void giveKeysOfTheirOwn(const QMenu& systemMenu) {
    for (QAction* entry : systemMenu.actions()) {
        if (entry->text() == u"Dimen&sione"_s) {
            entry->setText(u"&Dimensione"_s);
        } else if (entry->text() == u"Ma&ssimizza"_s) {
            entry->setText(u"&Massimizza"_s);
        }
    }
}

/// Controls know their size for certain once the style has seen them; what the layouts around them,
/// those on the pages of a tab too, have heard before may be too little.
void askForSizesAnew(QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        control->ensurePolished();
        control->updateGeometry();
    }
    for (QLayout* layout : window.findChildren<QLayout*>()) {
        layout->invalidate(); // a layout in a layout is not told otherwise
    }
    window.updateGeometry();
}

QString caption(const char16_t* text) {
    return QString::fromUtf16(text);
}

} // namespace

MDIForm1::MDIForm1(Program& program, const QString& programFolder, QWidget* parent)
    : QMainWindow(parent)
    , m_program(program)
    , m_stateFile(stateFolder())
    , m_area(new QMdiArea(this))
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

void MDIForm1::buildMenus() {
    for (const MenuInfo& info : menuTable()) {
        auto* menu = new QMenu(caption(info.caption), menuBar());
        menu->setObjectName(QString::fromLatin1(info.name));
        menuBar()->addMenu(menu);
        m_menus.at(static_cast<std::size_t>(info.menu)) = menu;
    }
    for (const CommandInfo& info : commandTable()) {
        auto* action = new QAction(caption(info.caption), this);
        action->setObjectName(QString::fromLatin1(info.name));
        action->setMenuRole(QAction::NoRole);
        const Command command = info.command;
        connect(action, &QAction::triggered, this, [this, command] { run(command); });
        m_actions.at(static_cast<std::size_t>(command)) = action;
        if (info.menu != Menu::none) {
            QMenu* menu = m_menus.at(static_cast<std::size_t>(info.menu));
            if (info.startsGroup) {
                menu->addSeparator();
            }
            menu->addAction(action);
        }
    }
}

void MDIForm1::buildToolbar() {
    m_toolbar = addToolBar(u"Barra degli strumenti"_s);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    m_toolbar->setMovable(false);
    m_toolbar->setIconSize(toolPictureSize);
    for (const ToolInfo& info : toolTable()) {
        QAction*& tool = m_tools.at(static_cast<std::size_t>(info.position) - 1);
        if (info.isSeparator()) {
            tool = m_toolbar->addSeparator();
            continue;
        }
        const QString key = QString::fromLatin1(info.key);
        tool = m_toolbar->addAction(picture(u"Imm"_s + key), caption(info.toolTip));
        tool->setObjectName(key);
        const Command command = info.command;
        connect(tool, &QAction::triggered, this, [this, command] { run(command); });
        if (command == Command::mnuOpzioni) {
            auto* menu = new QMenu(this);
            menu->addAction(action(Command::graphOptions));
            menu->addAction(action(Command::weeklyOptions));
            tool->setMenu(menu);
            auto* button = qobject_cast<QToolButton*>(m_toolbar->widgetForAction(tool));
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
    }
}

void MDIForm1::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName(u"StatusBar1"_s);
    for (StatusLabel*& panel : m_panels) {
        panel = new StatusLabel(bar);
        bar->addWidget(panel, 1);
    }
}

void MDIForm1::buildPopup() {
    m_popup = new QMenu(u"PopUp"_s, this);
    m_popup->setObjectName(u"mnuPopUp"_s);
    const auto add = [this](const QString& name) {
        m_popup->addAction(QString())->setObjectName(name);
    };
    add(u"mnuPopGiorno"_s);
    m_popup->addSeparator()->setObjectName(u"mnuPopBar1"_s);
    add(u"mnuPopFis"_s);
    add(u"mnuPopEm"_s);
    add(u"mnuPopInt"_s);
    add(u"mnuPopMed"_s);
    m_popup->addSeparator()->setObjectName(u"mnuPopBar2"_s);
    QAction* options = m_popup->addAction(u"Opzioni"_s);
    options->setObjectName(u"mnuPopOpt"_s);
    connect(options, &QAction::triggered, this, [this] {
        const QMdiSubWindow* active = m_area->currentSubWindow();
        if (auto* child = active ? qobject_cast<ChildWindow*>(active->widget()) : nullptr) {
            child->SetOptions();
        }
    });
}

/// The keys for the windows inside the frame that the toolkit does not bring itself. It always
/// brings Ctrl+Tab, and for closing either Ctrl+W or that and Ctrl+F4, as the desktop has it.
void MDIForm1::buildChildKeys() {
    const auto add = [this](const QString& keys, const auto& slot) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(keys));
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    add(u"Ctrl+F6"_s, [this] { m_area->activateNextSubWindow(); });
    add(u"Ctrl+Shift+F6"_s, [this] { m_area->activatePreviousSubWindow(); });
    const QKeySequence close(u"Ctrl+F4"_s);
    if (!QKeySequence::keyBindings(QKeySequence::Close).contains(close)) {
        add(close.toString(), [this] { m_area->closeActiveSubWindow(); });
    }
    add(u"Alt+-"_s, [this] {
        if (QMdiSubWindow* window = m_area->activeSubWindow()) {
            window->showSystemMenu();
        }
    });
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
        if (QFileInfo::exists(path)) {
            openFile(path);
        }
        break;
    }
    case StartMode::openFile:
        if (QFileInfo::exists(request.text)) {
            openFile(QFileInfo(request.text).absoluteFilePath());
        } else {
            showError(this, u"Il file \"%1\" non esiste."_s.arg(request.text), u"Errore"_s);
        }
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

/// Opens a file that was named at the start, where something may have been taken back already.
void MDIForm1::openFile(const QString& path) {
    const FileKind kind = fileKind(path);
    if (kind == FileKind::other || !closedCurrent()) {
        return;
    }
    switch (kind) {
    case FileKind::biorhythm:
        loadBiorhythmFile(path);
        break;
    case FileKind::system:
        loadSystemFile(path);
        break;
    default:
        break;
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
    default:
        break; // its window is not there yet
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
            m_tools.at(static_cast<std::size_t>(info.position) - 1)
                ->setEnabled(m_states.isToolEnabled(info.position));
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

void MDIForm1::showChild(ChildWindow* child) {
    auto* window = qobject_cast<QMdiSubWindow*>(child->parentWidget());
    if (window == nullptr) {
        window = m_area->addSubWindow(child);
        giveKeysOfTheirOwn(*window->systemMenu());
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowIcon(windowIcon());
        if (m_titleBarStyle->isNeeded()) {
            window->setStyle(m_titleBarStyle);
        }
        askForSizesAnew(*child);
        window->resize(window->sizeHint().boundedTo(m_area->viewport()->size()));
    }
    if (window->isMinimized()) {
        window->showNormal();
    }
    child->show();
    window->show();
    m_area->setActiveSubWindow(window);
}

void MDIForm1::showDayPopup(const DayPopup& popup, QPoint globalPosition) {
    const auto setCaption = [this](const QString& name, const QString& text) {
        m_popup->findChild<QAction*>(name)->setText(text);
    };
    setCaption(u"mnuPopGiorno"_s, popup.day);
    setCaption(u"mnuPopFis"_s, popup.physical);
    setCaption(u"mnuPopEm"_s, popup.emotional);
    setCaption(u"mnuPopInt"_s, popup.intellectual);
    setCaption(u"mnuPopMed"_s, popup.mean);
    m_popup->popup(globalPosition);
}

QList<QMdiSubWindow*> MDIForm1::children(bool minimised) const {
    QList<QMdiSubWindow*> windows = m_area->subWindowList(QMdiArea::StackingOrder);
    windows.removeIf([minimised](const QMdiSubWindow* window) {
        return window->isHidden() || window->isMinimized() != minimised;
    });
    std::reverse(windows.begin(), windows.end()); // the active one first
    return windows;
}

void MDIForm1::arrangeChildren(Command command) {
    const QList<QMdiSubWindow*> icons = children(true);
    const QList<QMdiSubWindow*> windows = children(false);
    if (command == Command::mnuWinArrIco) {
        if (!icons.isEmpty()) {
            const auto places =
                arrangeIcons(m_area->viewport()->size(), icons.constFirst()->frameGeometry().size(),
                             static_cast<int>(icons.size()));
            for (qsizetype i = 0; i < icons.size(); ++i) {
                icons[i]->move(places[i]);
            }
        }
        return;
    }
    if (command == Command::mnuWinArrCas) {
        m_area->cascadeSubWindows();
        return;
    }
    QSize area = m_area->viewport()->size();
    if (!icons.isEmpty()) {
        area.rheight() -= icons.constFirst()->frameGeometry().height();
    }
    const int count = static_cast<int>(windows.size());
    const auto places = command == Command::mnuWinArrHor ? tileHorizontally(area, count)
                                                         : tileVertically(area, count);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        windows[i]->showNormal();
        windows[i]->setGeometry(places[i]);
    }
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
