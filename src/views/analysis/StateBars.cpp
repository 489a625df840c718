#include "views/analysis/StateBars.h"

#include "core/Rounding.h"
#include "toolkit/AccessiblePicture.h"
#include "toolkit/DrawingPainter.h"
#include "views/analysis/TrendArrow.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

QColor between(const QColor& one, const QColor& other) {
    return QColor::fromRgb((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                           (one.blue() + other.blue()) / 2);
}

/// The bar with a thin border inside its rectangle. The border leans towards the text's colour, so
/// that a yellow bar stands out from light paper and a blue one from dark.
void paintBar(QPainter& painter, const QRect& bar, const QColor& fill, const QColor& text,
              int lineWidth) {
    painter.fillRect(bar, between(fill, text));
    const QRect inner = bar.adjusted(lineWidth, lineWidth, -lineWidth, -lineWidth);
    if (inner.isValid()) {
        painter.fillRect(inner, fill);
    }
}

} // namespace

StateBars::StateBars(QWidget* parent)
    : QWidget(parent) {
    introduceAsPicture(*this, PictureKind::chart);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    int number = 0;
    for (TrendArrow*& arrow : m_arrows) {
        arrow = new TrendArrow(this);
        arrow->setObjectName(u"Image1_%1"_s.arg(++number));
    }
}

void StateBars::setState(const DayState& state,
                         const std::array<Colour, stateItems.size()>& colours) {
    m_state = state;
    m_colours = colours;
    for (const StateItem item : stateItems) {
        m_arrows.at(static_cast<std::size_t>(item))->setTrend(item, state.trend(item));
    }
    setAccessibleDescription(describeState(state));
    update();
}

QSize StateBars::sizeHint() const {
    return hint(12);
}

QSize StateBars::minimumSizeHint() const {
    return hint(6);
}

/// @param lines distance of the outer lines, in lines of text
QSize StateBars::hint(int lines) const {
    const QFontMetrics metrics(font());
    const StatePictureSizes own = sizes(1.0);
    int column = own.arrowSize * 3 / 2 + 2 * (own.arrowSize + 2 * own.gap);
    for (const StateItem item : stateItems) {
        column = std::max(column, metrics.horizontalAdvance(itemCaption(item)) + 2 * own.gap);
    }
    const int columns = static_cast<int>(stateItems.size()) * column;
    const int rest = 2 * own.textHeight + 2 * own.gap + 1; // half numbers and captions
    return {own.scaleWidth + 3 * own.gap + columns, lines * own.textHeight + rest};
}

StatePictureSizes StateBars::sizes(qreal ratio) const {
    const QFontMetrics metrics(font());
    const auto scaled = [ratio](int pixels) { return toPixel(pixels * ratio); };
    return {.width = scaled(width()),
            .height = scaled(height()),
            .textHeight = scaled(metrics.height()),
            .scaleWidth = scaled(metrics.horizontalAdvance(u"-10"_s)),
            .arrowSize = scaled(metrics.height() * 5 / 4),
            .gap = scaled(std::max(2, metrics.height() / 4))};
}

void StateBars::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintPlot(painter);
    paintTexts(painter);
    if (hasFocus()) {
        paintFocusFrame(painter, *this);
    }
}

/// Lines and bars, in pixels of the screen, so that they begin and end on whole ones at any scale.
void StateBars::paintPlot(QPainter& painter) const {
    const qreal ratio = painter.deviceTransform().m11();
    const StatePlot plot = layOutState(sizes(ratio));
    const int lineWidth = std::max(1, toPixel(ratio));
    const QRect area(plot.left, plot.topLine, plot.right() - plot.left,
                     plot.bottomLine - plot.topLine);
    const QColor text = palette().color(QPalette::WindowText);
    const QColor paper = palette().color(QPalette::Base);
    const QColor faint = between(between(text, paper), paper);

    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.fillRect(area, paper);
    const auto horizontal = [&](int y, const QColor& colour) {
        painter.fillRect(QRect(area.left(), y, area.width(), lineWidth), colour);
    };
    const auto vertical = [&](int x) {
        painter.fillRect(QRect(x, area.top(), lineWidth, area.height()), faint);
    };
    horizontal(plot.topLine, faint);
    horizontal(plot.bottomLine, faint);
    vertical(area.left());
    vertical(plot.right() - lineWidth);
    for (const StateItem item : stateItems) {
        const auto column = static_cast<std::size_t>(item);
        const QRect bar = plot.bar(column, m_state.value(item));
        if (!bar.isEmpty()) {
            paintBar(painter, bar, toQColor(m_colours.at(column)), text, lineWidth);
        }
    }
    horizontal(plot.zeroLine, text);
    painter.restore();
}

/// The numbers beside the lines and the captions, in the widget's own units, where the font has its
/// size.
void StateBars::paintTexts(QPainter& painter) const {
    const StatePictureSizes own = sizes(1.0);
    const StatePlot plot = layOutState(own);
    painter.setPen(palette().color(QPalette::WindowText));
    const auto number = [&](int value, int y) {
        const QRect area(0, y - own.textHeight, plot.left - own.gap, 2 * own.textHeight);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, QString::number(value));
    };
    number(10, plot.topLine);
    number(0, plot.zeroLine);
    number(-10, plot.bottomLine);
    for (const StateItem item : stateItems) {
        painter.drawText(plot.caption(static_cast<std::size_t>(item)),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip, itemCaption(item));
    }
}

void StateBars::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeArrows();
}

void StateBars::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        placeArrows();
    }
}

void StateBars::placeArrows() {
    const StatePlot plot = layOutState(sizes(1.0));
    for (std::size_t column = 0; column < m_arrows.size(); ++column) {
        m_arrows.at(column)->setGeometry(plot.arrow(column));
    }
}

} // namespace quor
