#include "toolkit/ToolTipText.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// As much of a text as anybody reads in a tooltip: more than the longest path, and not so much
/// that the tooltip is higher than the screen.
QString beginning(const QString& text) {
    constexpr qsizetype longest = 5000;
    if (text.size() <= longest) {
        return text;
    }
    const bool endsInPair = text[longest - 1].isHighSurrogate();
    return text.first(endsInPair ? longest - 1 : longest) + u'…';
}

} // namespace

QString toolTipText(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    // Whether a tooltip is markup is guessed from its beginning. An escaped text alone may be taken
    // for a plain one, and would show its entities; with a tag before it there is no doubt.
    return u"<span style=\"white-space: pre-wrap\">%1</span>"_s.arg(
        beginning(text).toHtmlEscaped());
}

} // namespace quor
