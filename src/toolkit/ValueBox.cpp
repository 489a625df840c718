#include "toolkit/ValueBox.h"

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace quor {

ValueBox::ValueBox(QWidget* parent)
    : QLineEdit(parent) {
    setReadOnly(true);
}

void ValueBox::setWidestText(const QString& text) {
    m_widestText = text;
    updateGeometry();
}

void ValueBox::setValue(const QString& text) {
    setText(text);
    setCursorPosition(0);
    updateGeometry(); // a date of another language may be wider than foreseen
}

QSize ValueBox::sizeHint() const {
    const QFontMetrics metrics(font());
    const int text =
        std::max(metrics.horizontalAdvance(m_widestText), metrics.horizontalAdvance(this->text()));
    // The line edit keeps a little room beside its text, for the cursor too: one letter's worth.
    const QMargins margins = textMargins();
    const QSize content(text + metrics.averageCharWidth() + margins.left() + margins.right(),
                        QLineEdit::sizeHint().height());
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QSize box = style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, this);
    return {box.width(), content.height()};
}

QSize ValueBox::minimumSizeHint() const {
    return sizeHint();
}

} // namespace quor
