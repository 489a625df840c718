#include "toolkit/LateInput.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <QWindow>

namespace quor {

namespace {

/// The window that this one belongs to in the end.
const QWindow* outermost(const QWindow* window) {
    while (const QWindow* owner = window->parent(QWindow::IncludeTransients)) {
        window = owner;
    }
    return window;
}

/// Whether a modal window takes what would be done in this one. As the toolkit has it, by the
/// windows on the screen: the help belongs to the dialog that it stands beside.
bool isBlocked(const QWindow* window) {
    const QWindow* modal = QGuiApplication::modalWindow();
    if (modal == nullptr || window == nullptr || modal == window ||
        modal->isAncestorOf(window, QWindow::IncludeTransients)) {
        return false;
    }
    return modal->modality() == Qt::ApplicationModal || outermost(modal) == outermost(window);
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
    return isBlocked(button->window()->windowHandle()); // it comes again
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
