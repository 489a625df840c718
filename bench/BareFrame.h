#pragma once

#include "toolkit/Frame.h"

#include <QString>

namespace quor::bench {

/// A frame that has no state of its own to keep.
class BareFrame : public Frame {
  public:
    [[nodiscard]] QWidget* widget() override { return nullptr; }
    void run(Command /*command*/) override {}
    void setCommandEnabled(Command /*command*/, bool /*enabled*/) override {}
    void setMenuEnabled(Menu /*menu*/, bool /*enabled*/) override {}
    void setToolEnabled(int /*position*/, bool /*enabled*/) override {}
    void setToolbarEnabled(bool /*enabled*/) override {}
    void setStatusPanel(StatusPanel /*panel*/, const QString& /*text*/) override {}
    void applyBiorhythm() override {}
    void closeBiorhythm() override {}
    void showBiorhythmEntry() override {}
    void showExport(const QString& /*caption*/) override {}
    void showPrint(PrintMode /*mode*/) override {}
    void showChild(ChildWindow* /*child*/) override {}
    void showDayPopup(const DayPopup& /*popup*/, QPoint /*globalPosition*/) override {}
    void startTour(std::uint8_t /*number*/) override {}
    void lockCommands(const TourLock& /*lock*/) override {}
    void unlockCommands() override {}
    [[nodiscard]] bool openForTour(Command /*command*/) override { return false; }
};

} // namespace quor::bench
