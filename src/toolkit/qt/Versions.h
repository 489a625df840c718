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

} // namespace quor::qt
