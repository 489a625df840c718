#include "toolkit/TestBusyCursor.h"

#include "toolkit/BusyCursor.h"

#include <QGuiApplication>
#include <QTest>

namespace quor::test {

namespace {

bool isBusy() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

} // namespace

void TestBusyCursor::showsWhileItLives() {
    QVERIFY(!QGuiApplication::overrideCursor());
    {
        const BusyCursor busy;
        QVERIFY(isBusy());
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestBusyCursor::nests() {
    {
        const BusyCursor outer;
        {
            const BusyCursor inner;
            QVERIFY(isBusy());
        }
        QVERIFY(isBusy());
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

} // namespace quor::test
