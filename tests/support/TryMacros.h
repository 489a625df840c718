#pragma once

#include <QDeadlineTimer>
#include <QTest>

#include <chrono>

/// Qt's `QTRY_...` macros, usable where a narrowed number is an error.
///
/// From Qt 6.7 on they count milliseconds as `long`, and up to 6.10 their common part puts that
/// into an `int` (Qt 6.11 does not). There the common part waits by `QTest::qWaitFor`, as they do
/// by a loop of their own; what follows it, `QVERIFY` or `QCOMPARE`, says how it ended.
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0) && QT_VERSION < QT_VERSION_CHECK(6, 11, 0)
#undef QTRY_IMPL
#define QTRY_IMPL(condition, limit)                                                                \
    const std::chrono::milliseconds tryLimit = [&] {                                               \
        using namespace std::chrono_literals;                                                      \
        return std::chrono::milliseconds{limit};                                                   \
    }();                                                                                           \
    static_cast<void>(                                                                             \
        QTest::qWaitFor([&] { return static_cast<bool>(condition); }, QDeadlineTimer(tryLimit)));
#endif
