#include "guidance/ChoiceFrame.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace quor {

namespace {

constexpr float lineOpacity = 0.35F;
constexpr float hoverOpacity = 0.10F;
constexpr float downOpacity = 0.25F;
constexpr qreal cornerRadius = 3;

} // namespace

ChoiceFrame::ChoiceFrame(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

bool ChoiceFrame::event(QEvent* event) {
    // The first moment at which the style and the font are those of the window.
    if (event->type() == QEvent::Polish) {
        fitContents();
    }
    return QAbstractButton::event(event);
}

void ChoiceFrame::changeEvent(QEvent* event) {
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        fitContents();
    }
    QAbstractButton::changeEvent(event);
}

void ChoiceFrame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

QStyleOptionGroupBox ChoiceFrame::styleOption() const {
    QStyleOptionGroupBox option;
    option.initFrom(this);
    option.text = text();
    option.lineWidth = 1;
    option.textAlignment = Qt::AlignLeft;
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return option;
}

/// Leaves to the contents what the style leaves inside a group box.
void ChoiceFrame::fitContents() {
    QStyleOptionGroupBox option = styleOption();
    option.rect = QRect(0, 0, 200, 200); // any that is large enough
    const QRect inside =
        style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
    setContentsMargins(inside.left() - option.rect.left(), inside.top() - option.rect.top(),
                       option.rect.right() - inside.right(),
                       option.rect.bottom() - inside.bottom());
}

void ChoiceFrame::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    const QStyleOptionGroupBox option = styleOption();
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
    const QRect whole =
        style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxFrame, this);
    // Without the caption, which stands above or on the frame: as far from the contents as below.
    QRectF frame = whole;
    frame.setTop(contentsRect().top() - (whole.bottom() - contentsRect().bottom()));
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_inviting) {
        QColor line = palette().color(QPalette::WindowText);
        line.setAlphaF(lineOpacity);
        painter.setPen(line);
        painter.setBrush(palette().base());
        painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    }
    QColor tint = palette().color(QPalette::Highlight);
    if (isDown() || (m_inviting && underMouse())) {
        tint.setAlphaF(isDown() ? downOpacity : hoverOpacity);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(frame, cornerRadius, cornerRadius);
    }
    if (hasFocus()) {
        tint.setAlphaF(1);
        painter.setPen(QPen(tint, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame.adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    }
}

} // namespace quor
