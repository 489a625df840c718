#include "toolkit/qt/ListEscape.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

namespace quor::qt {

bool ListEscape::eventFilter(QObject* watched, QEvent* event) {
    const bool isQuestion = event->type() == QEvent::ShortcutOverride;
    if ((!isQuestion && event->type() != QEvent::KeyPress) || !watched->isWindowType() ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) {
        return false;
    }
    const bool isOpen = QApplication::activePopupWidget() != nullptr;
    if (isQuestion) {
        m_wasOpen = isOpen;
        return false;
    }
    return std::exchange(m_wasOpen, false) && !isOpen;
}

} // namespace quor::qt
