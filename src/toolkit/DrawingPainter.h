#pragma once

#include "toolkit/Drawing.h"

#include <QColor>
#include <QPen>

class QPainter;

namespace quor {

/// 0x00BBGGRR as the toolkit's colour; the top byte does not matter.
[[nodiscard]] QColor toQColor(Colour colour);
[[nodiscard]] Colour fromQColor(const QColor& colour);

/// The pen that paints a stroke, its dashes in the pen's own width.
[[nodiscard]] QPen toQPen(const Stroke& stroke);

/// Black or white, whichever reads better on the colour.
[[nodiscard]] QColor readableOn(const QColor& background);

/// The one painter of drawings, for the screen, pictures and paper. It paints on top of what is
/// there, in the painter's font and coordinates, and leaves the painter's state as it was.
void paint(QPainter& painter, const Drawing& drawing);

} // namespace quor
