#include "shell/FramePlace.h"

#include "shell/StateFile.h"

#include <QScreen>
#include <QWidget>

namespace quor {

namespace {

constexpr QSize firstSize(1080, 760);
/// Of a frame that somebody could have wanted.
constexpr QSize leastSize(160, 120);

} // namespace

void restorePlace(QWidget& frame, const StateFile& state) {
    const QSize size = firstSize.boundedTo(frame.screen()->availableSize());
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
