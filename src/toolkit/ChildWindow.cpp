#include "toolkit/ChildWindow.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QMdiSubWindow>

#include <algorithm>

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

QSize ChildWindow::forFont(QSize usual) const {
    constexpr double usualPoints = 10;
    return usual * std::max(1.0, QFontInfo(font()).pointSizeF() / usualPoints);
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (event->isAccepted()) {
        emit closed();
    }
}

} // namespace quor
