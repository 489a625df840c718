#pragma once

#include "views/analysis/DayStateWindow.h"

namespace quor {

/// The state of the current biorhythm on its calculation date, as it was when the window was made.
class FStat : public DayStateWindow {
    Q_OBJECT

  public:
    /// @param program its record has been applied
    explicit FStat(const Program& program, QWidget* parent = nullptr);
};

} // namespace quor
