#include "toolkit/AccessiblePicture.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QVariant>
#include <QWidget>

namespace quor {

namespace {

constexpr const char* roleProperty = "pictureRole";

QAccessibleInterface* pictureInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = object->property(roleProperty);
    if (widget == nullptr || !role.isValid()) {
        return nullptr;
    }
    return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

} // namespace

void introduceAsPicture(QWidget& widget, PictureKind kind) {
    QAccessible::installFactory(pictureInterface); // counts once
    const QAccessible::Role role =
        kind == PictureKind::chart ? QAccessible::Chart : QAccessible::Graphic;
    widget.setProperty(roleProperty, static_cast<int>(role));
}

void paintFocusFrame(QPainter& painter, const QWidget& widget) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    QPen pen(widget.palette().color(QPalette::Highlight), 1);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(widget.rect().adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace quor
