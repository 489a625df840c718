#include "shell/TitleBarStyle.h"

#include <QApplication>
#include <QFontMetrics>

#include <algorithm>

namespace quor {

namespace {

/// Pixels above and below the text.
constexpr int titleMargin = 2;

} // namespace

TitleBarStyle::TitleBarStyle(QObject* parent) {
    setParent(parent);
}

bool TitleBarStyle::isNeeded() const {
    return pixelMetric(PM_TitleBarHeight, nullptr, nullptr) >
           QProxyStyle::pixelMetric(PM_TitleBarHeight, nullptr, nullptr);
}

int TitleBarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    if (metric != PM_TitleBarHeight) {
        return pixels;
    }
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return std::max(pixels, metrics.height() + 2 * titleMargin);
}

} // namespace quor
