#include "guidance/HelpKey.h"

#include "toolkit/ShowHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The window that the user is working in: a child of the frame if the frame is active.
QWidget* workingWindow(QWidget* active) {
    for (const QMdiArea* area : active->findChildren<QMdiArea*>()) {
        const QMdiSubWindow* child = area->currentSubWindow();
        if (area->isVisible() && child != nullptr && child->widget() != nullptr) {
            return child->widget();
        }
    }
    return active;
}

QPushButton* helpButton(const QWidget* window) {
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
        if (button->text() == u"&?"_s && button->isVisible() && button->isEnabled()) {
            return button;
        }
    }
    return nullptr;
}

} // namespace

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        QWidget* active = QApplication::activeWindow();
        if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier && active != nullptr &&
            QApplication::activePopupWidget() == nullptr) {
            if (!key->isAutoRepeat()) {
                helpWith(active);
            }
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void HelpKey::helpWith(QWidget* window) {
    if (QPushButton* button = helpButton(workingWindow(window))) {
        button->click();
    } else {
        ShowHelp(window, helpPath());
    }
}

} // namespace quor
