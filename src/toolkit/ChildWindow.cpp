#include "toolkit/ChildWindow.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QMdiSubWindow>
#include <QPointer>

#include <algorithm>

namespace quor {

ChildWindow::ChildWindow(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
}

void ChildWindow::SetOptions() {}

void ChildWindow::closeWindow() {
    const QPointer<ChildWindow> self(this);
    m_closing = true;
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        frame->close();
    } else {
        close();
    }
    if (!self.isNull()) {
        m_closing = false;
    }
}

bool ChildWindow::mayClose() const {
    return m_closing || isEnabledTo(window());
}

QSize ChildWindow::forFont(QSize usual) const {
    constexpr double usualPoints = 10;
    return usual * std::max(1.0, QFontInfo(font()).pointSizeF() / usualPoints);
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(mayClose());
    if (event->isAccepted()) {
        emit closed();
    }
}

} // namespace quor
