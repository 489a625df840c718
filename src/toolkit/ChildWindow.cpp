#include "toolkit/ChildWindow.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

namespace quor {

ChildWindow::ChildWindow(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
}

void ChildWindow::SetOptions() {}

void ChildWindow::closeWindow() {
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        frame->close();
    } else {
        close();
    }
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (event->isAccepted()) {
        emit closed();
    }
}

} // namespace quor
