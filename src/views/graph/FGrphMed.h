#pragma once

#include "views/graph/GraphWindow.h"

namespace quor {

/// The graph of the open system: each value is the mean over the members. They are the members
/// that the system has when the window is made, and the window outlives the system.
class FGrphMed : public GraphWindow {
    Q_OBJECT

  public:
    /// @param program its system has at least one member
    FGrphMed(Program& program, Frame& frame, QWidget* parent = nullptr);
};

} // namespace quor
