#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "views/analysis/DayState.h"

#include <array>
#include <memory>

namespace quor {

namespace Ui {
class DayStateWindow;
}

/// A window that shows a day state: four boxes, and four bars with their trend arrows. What it
/// shows is handed over when it is made and does not change.
class DayStateWindow : public ChildWindow {
    Q_OBJECT

  public:
    ~DayStateWindow() override;
    DayStateWindow(const DayStateWindow&) = delete;
    DayStateWindow& operator=(const DayStateWindow&) = delete;
    DayStateWindow(DayStateWindow&&) = delete;
    DayStateWindow& operator=(DayStateWindow&&) = delete;

  protected:
    /// @param record its curves' colours are those of the bars
    DayStateWindow(const DayState& state, const Biorhythm& record, QWidget* parent);

  private:
    std::unique_ptr<Ui::DayStateWindow> m_ui;
};

} // namespace quor
