#pragma once

#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"

#include <QStringList>
#include <QWidget>

namespace quor::test {

/// A frame that shows nothing and notes what windows ask of it.
class RecordingFrame : public Frame {
  public:
    [[nodiscard]] QWidget* widget() override { return nullptr; }
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

    /// One line for each call, in order: "run mnuCalcola", "apply", "panel 1 Nome: Maria".
    QStringList calls;
    std::vector<DayPopup> popups;
    bool opensForTour = true; ///< what `openForTour` answers
    std::vector<ChildWindow*> shown;
};

} // namespace quor::test
