#include "toolkit/IconLabel.h"

#include <QPainter>
#include <QStyle>

namespace quor {

IconLabel::IconLabel(QWidget* parent)
    : QLabel(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconLabel::setIcon(const QIcon& icon, QSize size) {
    m_icon = icon;
    m_size = size;
    updateGeometry();
    update();
}

QSize IconLabel::sizeHint() const {
    return m_size;
}

QSize IconLabel::minimumSizeHint() const {
    return m_size;
}

void IconLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect area = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, m_size, rect());
    m_icon.paint(&painter, area, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace quor
