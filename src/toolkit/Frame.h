#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Commands.h"

#include <QPoint>
#include <QString>

class QWidget;

namespace quor {

class ChildWindow;

/// The three panels of the status bar.
enum class StatusPanel : std::uint8_t { person = 1, birth = 2, calculation = 3 };

/// What the popup of a graph says about a day: each caption as it is shown.
struct DayPopup {
    QString day;
    QString physical;
    QString emotional;
    QString intellectual;
    QString mean;
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
    /// @param position 1-based, separators counted
    virtual void setToolEnabled(int position, bool enabled) = 0;
    virtual void setStatusPanel(StatusPanel panel, const QString& text) = 0;

    /// Makes the contents of the biorhythm record current: adds the person to the open system, or
    /// updates the frame and opens the chosen views.
    virtual void applyBiorhythm() = 0;

    /// Makes the window a child of the frame, or brings it to the front if it is one, and shows it.
    /// A window that closes is deleted.
    virtual void showChild(ChildWindow* child) = 0;

    virtual void showDayPopup(const DayPopup& popup, QPoint globalPosition) = 0;
};

} // namespace quor
