#include "shell/ToolHighlight.h"

#include <QEvent>
#include <QPainter>

namespace quor {

namespace {

constexpr qreal frameWidth = 2;
constexpr qreal cornerRadius = 4;
constexpr float fillOpacity = 0.18F;

} // namespace

ToolHighlight::ToolHighlight(QWidget* button)
    : QWidget(button->parentWidget())
    , m_button(button) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    button->installEventFilter(this);
    follow();
}

bool ToolHighlight::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void ToolHighlight::follow() {
    setGeometry(m_button->geometry());
    setVisible(!m_button->isHidden());
    raise();
}

void ToolHighlight::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor colour = palette().color(QPalette::Highlight);
    painter.setPen(QPen(colour, frameWidth));
    colour.setAlphaF(fillOpacity);
    painter.setBrush(colour);
    constexpr qreal half = frameWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), cornerRadius,
                            cornerRadius);
}

} // namespace quor
