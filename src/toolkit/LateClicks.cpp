#include "toolkit/LateClicks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QSignalBlocker>

namespace quor {

namespace {

/// Whether a modal window takes what would be done in this one.
bool isBlocked(const QWidget* window) {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == window || modal->isAncestorOf(window)) {
        return false;
    }
    return modal->windowModality() == Qt::ApplicationModal || window->isAncestorOf(modal);
}

} // namespace

bool LateClicks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Timer) {
        return false;
    }
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr) {
        return false;
    }
    if (!button->isVisible()) {
        const QSignalBlocker quiet(button);
        watched->event(event);
        return true;
    }
    return isBlocked(button->window()); // its timer comes again
}

} // namespace quor
