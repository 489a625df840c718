#include "toolkit/ToolTipText.h"

#include "toolkit/LineText.h"

using namespace Qt::StringLiterals;

namespace quor {

QString toolTipText(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    // More than the longest path, and not so much that the tooltip is higher than the screen.
    constexpr qsizetype longest = 5000;
    // Whether a tooltip is markup is guessed from its beginning. An escaped text alone may be taken
    // for a plain one, and would show its entities; with a tag before it there is no doubt.
    return u"<span style=\"white-space: pre-wrap\">%1</span>"_s.arg(
        beginningOf(text, longest).toHtmlEscaped());
}

} // namespace quor
