#include "shell/MaximisedChild.h"

#include "toolkit/ChildWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopedValueRollback>

namespace quor {

MaximisedChild::MaximisedChild(QMdiArea* area)
    : QObject(area)
    , m_area(area) {
    area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    connect(area, &QMdiArea::subWindowActivated, this, &MaximisedChild::activated);
}

void MaximisedChild::watch(QMdiSubWindow* window) {
    connect(window, &QMdiSubWindow::windowStateChanged, this,
            [this, window](Qt::WindowStates before, Qt::WindowStates after) {
                stateChanged(window, before, after);
            });
    if (const auto* child = qobject_cast<ChildWindow*>(window->widget())) {
        connect(child, &ChildWindow::closed, this, [this, window] { closed(window); });
    }
}

/// A window becomes active while it is being shown, and takes its own size again afterwards.
void MaximisedChild::show(QMdiSubWindow* window) {
    {
        const QScopedValueRollback changing(m_changing, true);
        window->widget()->show();
        window->show();
        m_area->setActiveSubWindow(window);
    }
    activated(window);
}

void MaximisedChild::activated(QMdiSubWindow* window) {
    if (window == nullptr) {
        m_on = m_on && !m_area->subWindowList().isEmpty();
        return;
    }
    // Qt activates a new window before it is shown, which would undo this, and a window that the
    // user restores before it says so.
    const auto* child = qobject_cast<ChildWindow*>(window->widget());
    const bool isSettled = !window->isHidden() && window != m_window;
    if (m_on && !m_changing && isSettled && child != nullptr && child->grows()) {
        maximise(window);
    }
}

void MaximisedChild::stateChanged(QMdiSubWindow* window, Qt::WindowStates before,
                                  Qt::WindowStates after) {
    const bool isMaximised = after.testFlag(Qt::WindowMaximized);
    if (m_changing || isMaximised == before.testFlag(Qt::WindowMaximized)) {
        return;
    }
    m_on = isMaximised;
    m_window = isMaximised ? window : nullptr;
    if (isMaximised) {
        // Qt is still at it, with the window hidden.
        QMetaObject::invokeMethod(
            window,
            [this, window] {
                if (window->isMaximized()) {
                    maximise(window);
                }
            },
            Qt::QueuedConnection);
    }
}

/// The others are restored first: what is restored comes to the front and takes the title of the
/// frame with it.
void MaximisedChild::maximise(QMdiSubWindow* window) {
    const QScopedValueRollback changing(m_changing, true);
    m_window = window;
    QList<QMdiSubWindow*> others = m_area->subWindowList();
    others.removeIf(
        [window](const QMdiSubWindow* other) { return other == window || !other->isMaximized(); });
    if (window->isMaximized() && others.isEmpty()) {
        return;
    }
    m_area->setUpdatesEnabled(false);
    for (QMdiSubWindow* other : others + QList{window}) {
        other->showNormal();
    }
    window->showMaximized();
    m_area->setUpdatesEnabled(true);
}

void MaximisedChild::closed(const QMdiSubWindow* window) {
    if (m_window == window) {
        m_window = nullptr; // it is deleted later, and comes next to none until then
    } else if (m_window != nullptr && m_area->activeSubWindow() == window) {
        m_area->setActiveSubWindow(m_window);
    }
}

} // namespace quor
