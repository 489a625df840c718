#include "toolkit/PictureBox.h"

#include "toolkit/DrawingPainter.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

namespace quor {

PictureBox::PictureBox(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureBox::setDrawing(Drawing drawing) {
    m_drawing = std::move(drawing);
    m_sheet = QPixmap();
    update();
}

int PictureBox::textHeight() const {
    return QFontMetrics(font()).height();
}

int PictureBox::textWidth(const QString& text, bool bold) const {
    QFont textFont = font();
    textFont.setBold(bold || textFont.bold());
    return QFontMetrics(textFont).horizontalAdvance(text);
}

void PictureBox::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_sheet = QPixmap();
        update();
    }
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    const QSize wanted = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_sheet.size() != wanted) {
        m_sheet = QPixmap(wanted);
        m_sheet.setDevicePixelRatio(devicePixelRatioF());
        m_sheet.fill(Qt::white);
        QPainter painter(&m_sheet);
        painter.setFont(font());
        paint(painter, m_drawing);
    }
    QPainter(this).drawPixmap(0, 0, m_sheet);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_sheet = QPixmap();
    emit resized();
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    emit pressed(event->button(), event->position().toPoint());
}

} // namespace quor
