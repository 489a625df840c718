#pragma once

#include "views/graph/GraphWindow.h"

namespace quor {

/// The graph of the current biorhythm.
class FGrph : public GraphWindow {
    Q_OBJECT

  public:
    FGrph(Program& program, Frame& frame, QWidget* parent = nullptr);
};

} // namespace quor
