#pragma once

#include "core/Biorhythm.h"
#include "views/analysis/ForecastWindow.h"

namespace quor {

/// The forecast of the open system, whose mean is that of its members as they are when the window
/// is made. Making it for a very large system takes a moment.
class FPrevMed : public ForecastWindow {
    Q_OBJECT

  public:
    /// @param program its system has at least one member
    explicit FPrevMed(const Program& program, QWidget* parent = nullptr);
};

} // namespace quor
