#include "toolkit/WindowTitle.h"

#include "toolkit/LineText.h"

#include <QRegularExpression>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

const QString& mark() {
    static const QString text = u"[*]"_s;
    return text;
}

} // namespace

/// Qt's own escape, the mark twice, does not serve: the accessible name of a window inside the
/// frame is its title without any mark. A mark within the mark, "[[*]*]", is taken out by both and
/// leaves one. Qt then makes one of two that touch, so there is a further one between those. The
/// frame puts the title of a maximised window in brackets, which would complete a mark at its end.
void setTitle(QWidget& window, const QString& text) {
    static const QRegularExpression star(u"\\[\\*(?=\\]|$)"_s);
    static const QRegularExpression between(u"(?<=\\[\\[\\*\\]\\*\\])(?=\\[\\[\\*\\]\\*)"_s);
    window.setWindowTitle(lineText(text).replace(star, u"[[*]*"_s).replace(between, mark()));
}

QString titleOf(const QWidget& window) {
    return window.windowTitle().remove(mark());
}

} // namespace quor
