#pragma once

class QWidget;

/// The frame's size and place, whether it is maximised, and its screen, from one run to the next.
namespace quor {

class StateFile;

/// Where the frame was when it was last seen. Without that, or where it cannot be any more, it
/// takes its first size, and the desktop finds it a place. Before the frame is shown.
void restorePlace(QWidget& frame, const StateFile& state);

/// Does nothing for a frame that was never shown.
void savePlace(const QWidget& frame, const StateFile& state);

} // namespace quor
