#include "toolkit/PictureBox.h"

#include "toolkit/AccessiblePicture.h"
#include "toolkit/DrawingPainter.h"

#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace quor {

PictureBox::PictureBox(QWidget* parent)
    : QWidget(parent) {
    introduceAsPicture(*this, PictureKind::chart);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus); // a click on a picture leaves the keyboard where it is
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

void PictureBox::contextMenuEvent(QContextMenuEvent* event) {
    // That of a mouse button has come as `pressed` already.
    if (event->reason() == QContextMenuEvent::Keyboard) {
        emit menuRequested();
    }
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    // The menu key becomes an event of its own; this one the toolkit leaves to us.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        emit menuRequested();
        return;
    }
    QWidget::keyPressEvent(event);
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
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_sheet);
    if (hasFocus()) {
        paintFocusFrame(painter, *this);
    }
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
