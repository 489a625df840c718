#pragma once

#include "core/Biorhythm.h"
#include "shell/CommandLine.h"
#include "shell/CommandStates.h"
#include "shell/StateFile.h"
#include "toolkit/Dialogs.h"
#include "toolkit/Frame.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <span>
#include <vector>

class QMdiArea;
class QMdiSubWindow;
class QToolBar;

namespace quor {

class FEspBio;
class FFastStart;
class FGrph;
class FGrphSet;
class FIns;
class FOpt;
class FPrev;
class FProcGuid;
class FProj;
class FStampaBio;
class FStat;
class MaximisedChild;
class Recovery;
class RecentFiles;
class ElidedLabel;
class TitleBarStyle;
class ToolHighlight;

/// The program's frame: menus, toolbar, status bar, and the views as windows inside it.
class MDIForm1 : public QMainWindow, public Frame {
    Q_OBJECT

  public:
    /// Brings the program's data into the state of every start, makes the user's folders and reads
    /// the settings. The data outlive the frame.
    /// @param programFolder where the executable lies
    MDIForm1(Program& program, const QString& programFolder, QWidget* parent = nullptr);
    ~MDIForm1() override;
    MDIForm1(const MDIForm1&) = delete;
    MDIForm1& operator=(const MDIForm1&) = delete;
    MDIForm1(MDIForm1&&) = delete;
    MDIForm1& operator=(MDIForm1&&) = delete;

    /// The last step of starting, once the frame is shown: offers what an earlier run could not
    /// save and opens what was named.
    void start(const StartRequest& request);

    /// The program ends without a question: what is not saved is put aside for the next start.
    void keepUnsavedWork();

    /// Reads a .bio file into the record, asks whether to move an old calculation date to today,
    /// and applies the biorhythm; or adds the person to the open system. What cannot be read or
    /// added changes nothing, and a box says why.
    void loadBiorhythmFile(const QString& path);

    /// Reads a .brs file, asks whether to move an old calculation date to today, and opens the
    /// system window with its members. What cannot be read changes nothing, and a box says why.
    void loadSystemFile(const QString& path);

    [[nodiscard]] QWidget* widget() override { return this; }
    void run(Command command) override;
    void setCommandEnabled(Command command, bool enabled) override;
    void setMenuEnabled(Menu menu, bool enabled) override;
    void setToolEnabled(int position, bool enabled) override;
    void setToolbarEnabled(bool enabled) override;
    void setStatusPanel(StatusPanel panel, const QString& text) override;
    void applyBiorhythm() override;
    void closeBiorhythm() override;
    void showBiorhythmEntry() override;
    void showExport(const QString& caption) override;
    void showPrint(PrintMode mode) override;
    void showChild(ChildWindow* child) override;
    void startTour(std::uint8_t number) override;
    void lockCommands(const TourLock& lock) override;
    void unlockCommands() override;
    [[nodiscard]] bool openForTour(Command command) override;
    void showDayPopup(const DayPopup& popup, QPoint globalPosition) override;

  signals:
    /// The program ends: nothing is asked any more.
    void ended();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    // Its parts (FrameBuilding.cpp).
    void buildMenus();
    void buildToolbar();
    void buildStatusBar();
    void buildPopup();
    void buildChildKeys();
    [[nodiscard]] QAction* action(Command command) const;

    /// A command chosen in a menu or the toolbar: nothing beneath a modal window or in a disabled
    /// frame, where assistive tools still reach it.
    void choose(Command command);

    /// Enables what the states of the commands say.
    void showCommandStates();

    /// True when the user has taken something back, which is then open.
    [[nodiscard]] bool recovered();

    // The views of the current biorhythm and their options (BiorhythmViews.cpp).
    /// One of the four view commands, refused with its message while there is no person.
    void openView(Command command);
    void openGraph();
    void openWeekly(const QString& title);
    void openDayState(const QString& title);
    void openForecasts();
    void closeViews();
    void openGraphOptions();
    void openWeeklyOptions();
    void openOptions();

    // The windows inside it (FrameChildren.cpp).
    void arrangeChildren(Command command);
    [[nodiscard]] QList<QMdiSubWindow*> children(bool minimised) const;

    // The commands of the menu of biorhythms (BiorhythmCommands.cpp).
    void newBiorhythm();
    void openBiorhythm();
    void saveBiorhythm();
    void saveBiorhythmAs();
    void askToCloseBiorhythm();
    void moveCalculationDate();
    void offerToday();
    void takeBiorhythmFile(const Program& read);
    [[nodiscard]] bool closedCurrentBiorhythm();
    FIns* ensureBiorhythmEntry();

    // The commands of the menu of systems (SystemCommands.cpp).
    void newSystem();
    void openSystemFile();
    void saveSystem();
    void saveSystemAs();
    void askToCloseSystem();
    [[nodiscard]] bool closedCurrent();
    FProj* ensureSystemWindow();
    void takeSystemFile(Program read);
    void showLoadedSystem();

    // The windows that export and print (ExportCommands.cpp).
    void closeExportAndPrint();
    void unlock();

    // Files that are named: at the start, recent and dropped ones (FileCommands.cpp).
    void buildFileEntries();
    void showFileEntryStates();
    [[nodiscard]] bool canOpen(FileKind kind) const;
    void openNamed(FileKind kind, const QString& path);
    void openFile(FileKind kind, const QString& path);
    [[nodiscard]] bool readFile(FileKind kind, const QString& path, Program& read);
    [[nodiscard]] RecentFiles* recentFiles(FileKind kind) const;

    // The fast-start window and the guided tours (GuideCommands.cpp).
    void showFastStart();
    [[nodiscard]] bool refusedByTour();
    void tourEnded();
    void setOptionsUsable(bool usable);
    void highlight(std::span<const Command> commands);

    void quit();
    void end();

    Program& m_program;
    StateFile m_stateFile;
    QMdiArea* m_area = nullptr;
    MaximisedChild* m_maximisedChild;
    TitleBarStyle* m_titleBarStyle;
    QToolBar* m_toolbar = nullptr;
    std::array<QAction*, commandCount> m_actions{};
    std::array<QAction*, toolCount> m_tools{};
    std::array<QMenu*, static_cast<std::size_t>(Menu::none)> m_menus{};
    CommandStates m_states;
    RecentFiles* m_recentBiorhythms = nullptr;
    RecentFiles* m_recentSystems = nullptr;
    std::array<ElidedLabel*, 3> m_panels{};
    QMenu* m_popup = nullptr; ///< mnuPopUp
    // Each view of the biorhythm exists once; null while it is closed.
    QPointer<FGrph> m_graph;
    QPointer<FGrphSet> m_weekly;
    QPointer<FStat> m_dayState;
    QPointer<FPrev> m_forecasts;
    QPointer<FProj> m_system; ///< while a system is open
    QPointer<FIns> m_newBiorhythm;
    QPointer<FOpt> m_options;
    QPointer<FEspBio> m_export;
    QPointer<FStampaBio> m_print;
    QPointer<FFastStart> m_fastStart;
    QPointer<FProcGuid> m_tour;
    std::vector<ToolHighlight*> m_highlights; ///< of the tour's step
    Recovery* m_recovery = nullptr;
    /// The answer to the last question whether to close the biorhythm.
    Answer m_closeAnswer = Answer::yes;
    bool m_ending = false;
};

} // namespace quor
