#include "guidance/HelpKey.h"

#include "toolkit/ShowHelp.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QList>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVariant>
#include <QWidget>

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
        const bool isHelp = button->text() == u"&?"_s || button->property("helpButton").toBool();
        if (isHelp && button->isVisible() && button->isEnabled()) {
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
    QWidget* working = workingWindow(window);
    if (QPushButton* button = helpButton(working)) {
        button->click();
    } else {
        ShowHelp(window, helpPath(working->property("helpTopic").toString()));
    }
}

} // namespace quor
