#include "toolkit/LateInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QSignalBlocker>
#include <QWindow>

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

/// Whether this was a window of its own before it was closed. What comes late to a list that
/// completes a text, or to another popup, belongs to the window below.
bool isClosed(const QWindow& window) {
    const bool stoodAlone = window.type() == Qt::Window || window.type() == Qt::Dialog;
    return stoodAlone && !window.isVisible();
}

/// Whether this keeps the end of a button's animation, which is its click, from coming now.
bool takesTimer(QAbstractButton* button, QEvent* event) {
    if (!button->isVisible()) {
        const QSignalBlocker quiet(button);
        static_cast<QObject*>(button)->event(event);
        return true;
    }
    return isBlocked(button->window()); // it comes again
}

} // namespace

bool LateInput::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Timer:
        if (auto* button = qobject_cast<QAbstractButton*>(watched)) {
            return takesTimer(button, event);
        }
        return false;
    // What was held down goes up everywhere.
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        return watched->isWindowType() && isClosed(*static_cast<QWindow*>(watched));
    default:
        return false;
    }
}

} // namespace quor
