#include "toolkit/TestBusyCursor.h"

#include "toolkit/BusyCursor.h"

#include <QGuiApplication>
#include <QTest>

#include <stdexcept>

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

void TestBusyCursor::goesWithAnException() {
    const auto fail = [] {
        const BusyCursor busy;
        throw std::runtime_error("computation failed");
    };
    QVERIFY_EXCEPTION_THROWN(fail(), std::runtime_error);
    QVERIFY(!QGuiApplication::overrideCursor());
}

} // namespace quor::test
