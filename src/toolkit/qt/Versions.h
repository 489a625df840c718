#pragma once

#include <QSize>

/// The one place for differences between versions of Qt: each function says which version does
/// what, and which test sees it. The version is the one that runs, which may be newer than the one
/// that Quor was built with.
namespace quor::qt {

/// The size in pixels of the screen that an icon's engine is to make in `scaledPixmap`.
///
/// Qt before 6.8 passes this size. Qt 6.8 and later pass the size in pixels of the window, and the
/// scale beside it. Test: TestSharpness.
/// @param size, scale as passed to `QIconEngine::scaledPixmap`
[[nodiscard]] QSize scaledPixmapPixels(QSize size, qreal scale);

/// Keeps what Qt's bridge to assistive tools says of objects that have just ended off standard
/// error.
///
/// A tool is told of an end, asks about what has ended, and Qt answers and warns. Qt 6.4 warns only
/// when it is built for its developers, Qt 6.8 and later always. It is the same with a message box
/// of Qt alone (tests/qt-faults/atspi_lines.cpp). QT_LOGGING_RULES shows it again.
/// Test: each one of tests/e2e.
void quietAssistiveBridge();

} // namespace quor::qt
