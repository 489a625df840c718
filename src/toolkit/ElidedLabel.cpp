#include "toolkit/ElidedLabel.h"

#include "toolkit/LineText.h"
#include "toolkit/ToolTipText.h"

#include <QPainter>
#include <QStyle>

namespace quor {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setContentsMargins(4, 0, 4, 0);
}

void ElidedLabel::setFullText(const QString& text) {
    setText(text);
    setToolTip(toolTipText(text));
    setAccessibleDescription(text); // it would be the tooltip otherwise, with its markup
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect();
    style()->drawItemText(&painter, area, Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(),
                          fontMetrics().elidedText(lineText(text()), Qt::ElideRight, area.width()),
                          foregroundRole());
}

} // namespace quor
