#include "toolkit/ToolTipText.h"

using namespace Qt::StringLiterals;

namespace quor {

QString toolTipText(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    // Whether a tooltip is markup is guessed from its beginning. An escaped text alone may be taken
    // for a plain one, and would show its entities; with a tag before it there is no doubt.
    return u"<span style=\"white-space: pre-wrap\">%1</span>"_s.arg(text.toHtmlEscaped());
}

} // namespace quor
