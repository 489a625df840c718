#pragma once

#include "core/Biorhythm.h"

class QWidget;

namespace quor {

/// Lets a widget with a text wear a colour behind it; the text is black or white, whichever reads
/// better there.
void wearColour(QWidget& widget, Colour colour);

} // namespace quor
