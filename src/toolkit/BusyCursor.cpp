#include "toolkit/BusyCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace quor {

BusyCursor::BusyCursor() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyCursor::~BusyCursor() {
    QGuiApplication::restoreOverrideCursor();
}

} // namespace quor
