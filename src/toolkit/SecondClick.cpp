#include "toolkit/SecondClick.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

namespace quor {

SecondClick::SecondClick(QWidget* opened, std::function<void()> showAgain)
    : QObject(opened)
    , m_showAgain(std::move(showAgain)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool SecondClick::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        end(); // another click, not the second of the first
        return false;
    case QEvent::MouseButtonDblClick:
        m_pressed = true;
        m_showAgain();
        return true;
    case QEvent::MouseButtonRelease:
        if (m_pressed) {
            end();
        }
        return m_pressed;
    default:
        return false;
    }
}

void SecondClick::end() {
    QCoreApplication::instance()->removeEventFilter(this);
    deleteLater();
}

} // namespace quor
