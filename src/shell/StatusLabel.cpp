#include "shell/StatusLabel.h"

#include "toolkit/LineText.h"
#include "toolkit/ToolTipText.h"

#include <QPainter>
#include <QStyle>

namespace quor {

StatusLabel::StatusLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setFrameShape(QFrame::StyledPanel);
    setContentsMargins(4, 0, 4, 0);
}

void StatusLabel::setFullText(const QString& text) {
    setText(text);
    setToolTip(toolTipText(text));
    setAccessibleDescription(text); // it would be the tooltip otherwise, with its markup
}

void StatusLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect();
    style()->drawItemText(&painter, area, Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(),
                          fontMetrics().elidedText(lineText(text()), Qt::ElideRight, area.width()),
                          foregroundRole());
}

} // namespace quor
