#pragma once

#include "views/analysis/DayStateWindow.h"

namespace quor {

/// The state of the open system on the calculation date: the mean of its members, as they are when
/// the window is made.
class FStatMed : public DayStateWindow {
    Q_OBJECT

  public:
    /// @param program its system has at least one member
    explicit FStatMed(const Program& program, QWidget* parent = nullptr);
};

} // namespace quor
