#include "views/analysis/TrendArrow.h"

#include "toolkit/ImageList.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quor {

TrendArrow::TrendArrow(QWidget* parent)
    : QWidget(parent) {}

void TrendArrow::setTrend(Trend trend, const QString& subject) {
    const bool rising = trend == Trend::rising;
    m_trend = trend;
    m_picture = picture(rising ? u"ImmFrecciaSu"_s : u"ImmFrecciaGiu"_s);
    const QString text = subject + (rising ? u" in salita"_s : u" in discesa"_s);
    setAccessibleName(text);
    setToolTip(text);
    update();
}

void TrendArrow::paintEvent(QPaintEvent* /*event*/) {
    // Painted anew each time rather than kept as pixels: sharp on every screen, and in the line
    // colour of the palette of the moment.
    QPainter painter(this);
    m_picture.paint(&painter, rect());
}

} // namespace quor
