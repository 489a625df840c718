#include "toolkit/ColourSwatch.h"

#include "toolkit/DrawingPainter.h"
#include "toolkit/FileDialogs.h"

#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quor {

ColourSwatch::ColourSwatch(QWidget* parent)
    : QAbstractButton(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setToolTip(u"Scegli il colore"_s);
}

void ColourSwatch::setColour(Colour colour) {
    m_colour = colour;
    update();
}

void ColourSwatch::choose() {
    if (const auto chosen = askColour(this, toQColor(m_colour), u"Scegli il colore"_s)) {
        setColour(fromQColor(*chosen));
    }
}

QSize ColourSwatch::sizeHint() const {
    const int height = fontMetrics().height() + 8;
    return {3 * height, height};
}

void ColourSwatch::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void ColourSwatch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), toQColor(m_colour));
    if (hasFocus()) {
        painter.setPen(QPen(readableOn(toQColor(m_colour)), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(3, 3, -4, -4));
    }
}

} // namespace quor
