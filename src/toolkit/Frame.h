#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Commands.h"

#include <QPoint>
#include <QString>

#include <cstdint>
#include <span>

class QWidget;

namespace quor {

class ChildWindow;

/// The three panels of the status bar.
enum class StatusPanel : std::uint8_t { person = 1, birth = 2, calculation = 3 };

/// What the print window does with its page.
enum class PrintMode : std::uint8_t { preview = 0, print = 1 };

/// What the popup of a graph says about a day: each caption as it is shown.
struct DayPopup {
    QString day;
    QString physical;
    QString emotional;
    QString intellectual;
    QString mean;
    QString note{}; ///< said below the values, where it is not empty
};

/// What a step of a guided tour leaves of the program. The commands stand in tables that outlive
/// it.
struct TourLock {
    /// Usable, from menu and toolbar alike, where they would be without the tour.
    std::span<const Command> allowed = {};
    /// Those whose toolbar buttons the step talks about: they are framed.
    std::span<const Command> highlighted = {};
    /// The two buttons of the system window that insert a member are usable.
    bool insertMembers = false;
};

/// What a window may ask of the program's frame. Windows know the frame only by this class.
class Frame {
  public:
    Frame() = default;
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    Frame(Frame&&) = delete;
    Frame& operator=(Frame&&) = delete;
    virtual ~Frame() = default;

    /// The parent of dialogs.
    [[nodiscard]] virtual QWidget* widget() = 0;

    virtual void run(Command command) = 0;
    virtual void setCommandEnabled(Command command, bool enabled) = 0;
    /// A whole menu of the bar; its commands keep their own state.
    virtual void setMenuEnabled(Menu menu, bool enabled) = 0;
    /// @param position 1-based, separators counted
    virtual void setToolEnabled(int position, bool enabled) = 0;
    /// The whole toolbar; its buttons keep their own state.
    virtual void setToolbarEnabled(bool enabled) = 0;
    virtual void setStatusPanel(StatusPanel panel, const QString& text) = 0;

    /// Makes the contents of the biorhythm record current: adds the person to the open system, or
    /// updates the frame and opens the chosen views.
    virtual void applyBiorhythm() = 0;

    /// Forgets the current biorhythm and closes every window that shows it, without a question.
    virtual void closeBiorhythm() = 0;

    /// The dialog for a new biorhythm, beside which the other windows stay usable.
    virtual void showBiorhythmEntry() = 0;

    /// The window that exports the current biorhythm or, with `exportWholeSystem`, the open system.
    /// Whatever the caller disabled for it is usable again when it closes.
    virtual void showExport(const QString& caption) = 0;
    /// The same for the window that prints the current biorhythm or shows its preview.
    virtual void showPrint(PrintMode mode) = 0;

    /// Makes the window a child of the frame, or brings it to the front if it is one, and shows it.
    /// A window that closes is deleted.
    virtual void showChild(ChildWindow* child) = 0;

    /// Starts a guided tour, unless one is running, which is said in a box.
    /// @param number as in `AppState::guidedProcedureActive`, not 0
    virtual void startTour(std::uint8_t number) = 0;
    /// Leaves only what the lock allows usable, until the next lock or `unlockCommands`. Whatever
    /// is enabled or disabled meanwhile shows when the lock is gone.
    virtual void lockCommands(const TourLock& lock) = 0;
    virtual void unlockCommands() = 0;
    /// Opens the dialog for a new biorhythm or a new system (mnuCalcola, mnuNuovoSistema) for a
    /// tour, which can be ended while it is open. False when the user has kept what would have had
    /// to be closed first.
    [[nodiscard]] virtual bool openForTour(Command command) = 0;

    virtual void showDayPopup(const DayPopup& popup, QPoint globalPosition) = 0;
};

} // namespace quor
