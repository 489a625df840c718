#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Frame.h"

/// What opens, shows and closes the system as a whole: the program's state and the frame's.
namespace quor {

/// Marks a system as open and brings the frame into the state that goes with it: entered and loaded
/// biorhythms become members, so the menu of biorhythms rests.
void openSystem(Program& program, Frame& frame);

/// Forgets the open system, together with its calculation date and display options and a biorhythm
/// that was used to compute it, and gives the frame back to single biorhythms. Asks nothing; the
/// system window calls it when it closes.
void closeSystem(Program& program, Frame& frame);

/// Whether the open system takes a person of this name: it has no member of that name, and room.
/// Where it does not, a box says so. Asked before anything of the person is stored.
[[nodiscard]] bool canAddMember(QWidget* parent, const Program& program, const QString& name);

/// Writes the system's file, its number of members and the calculation date into the status bar.
/// Without a system it does nothing.
void showSystemStatus(const Program& program, Frame& frame);

} // namespace quor
