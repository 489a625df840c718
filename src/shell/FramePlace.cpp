#include "shell/FramePlace.h"

#include "shell/StateFile.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize firstSize(1080, 760);
/// Of a frame that somebody could have wanted.
constexpr QSize leastSize(160, 120);

/// What a frame can take of its screen at the first start. On Wayland a program hears neither of
/// the desktop's panels nor beforehand of the title bar that Qt draws itself.
QSize roomOn(const QScreen& screen) {
    constexpr QSize panelAndTitleBar(16, 72);
    return QGuiApplication::platformName().startsWith(u"wayland"_s)
               ? screen.availableSize() - panelAndTitleBar
               : screen.availableSize();
}

} // namespace

void restorePlace(QWidget& frame, const StateFile& state) {
    const QSize size = firstSize.boundedTo(roomOn(*frame.screen()));
    frame.resize(size);
    const QByteArray place = state.framePlace();
    // The toolkit brings a place beyond the edges back in and refuses one on a screen of quite
    // another size. The end of a place that is cut short it would take for zeros.
    if (place.size() == frame.saveGeometry().size() && frame.restoreGeometry(place) &&
        frame.size().expandedTo(leastSize) != frame.size()) {
        frame.resize(size);
    }
}

void savePlace(const QWidget& frame, const StateFile& state) {
    if (frame.isVisible()) {
        state.saveFramePlace(frame.saveGeometry());
    }
}

} // namespace quor
