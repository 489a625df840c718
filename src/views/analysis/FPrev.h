#pragma once

#include "core/Biorhythm.h"
#include "views/analysis/ForecastWindow.h"

namespace quor {

/// The forecasts for the current biorhythm from its calculation date on, as it was when the window
/// was made.
class FPrev : public ForecastWindow {
    Q_OBJECT

  public:
    /// @param program its record has been applied
    explicit FPrev(const Program& program, QWidget* parent = nullptr);
};

} // namespace quor
