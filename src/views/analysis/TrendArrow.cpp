#include "views/analysis/TrendArrow.h"

#include "toolkit/AccessiblePicture.h"
#include "toolkit/ImageList.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace quor {

TrendArrow::TrendArrow(QWidget* parent)
    : QWidget(parent) {
    introduceAsPicture(*this, PictureKind::graphic);
}

void TrendArrow::setTrend(StateItem item, Trend trend) {
    m_trend = trend;
    m_picture = picture(trend == Trend::rising ? u"ImmFrecciaSu"_s : u"ImmFrecciaGiu"_s);
    const QString text = trendText(item, trend);
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
