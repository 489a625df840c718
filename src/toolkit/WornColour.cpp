#include "toolkit/WornColour.h"

#include "toolkit/DrawingPainter.h"

#include <QPalette>
#include <QWidget>

namespace quor {

void wearColour(QWidget& widget, Colour colour) {
    const QColor background = toQColor(colour);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, readableOn(background));
    widget.setPalette(palette);
    widget.setBackgroundRole(QPalette::Window);
    widget.setAutoFillBackground(true);
}

} // namespace quor
