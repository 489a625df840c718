#include "toolkit/qt/Versions.h"

#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QVersionNumber>

namespace quor::qt {

namespace {

bool runsWithAtLeast(int major, int minor) {
    static const QVersionNumber running = QLibraryInfo::version();
    return running >= QVersionNumber(major, minor);
}

} // namespace

QSize scaledPixmapPixels(QSize size, qreal scale) {
    return runsWithAtLeast(6, 8) ? size * scale : size;
}

void quietAssistiveBridge() {
    QLoggingCategory::setFilterRules(QStringLiteral("qt.accessibility.atspi.warning=false"));
}

} // namespace quor::qt
