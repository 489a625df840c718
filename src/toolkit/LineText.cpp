#include "toolkit/LineText.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr qsizetype longestShown = 1000;

} // namespace

QString lineText(const QString& text) {
    if (text.size() <= longestShown) {
        return text;
    }
    const bool endsInPair = text[longestShown - 1].isHighSurrogate();
    return text.first(endsInPair ? longestShown - 1 : longestShown) + u'…';
}

QString lineEnds(const QString& text) {
    if (text.size() <= longestShown) {
        return text;
    }
    constexpr qsizetype half = longestShown / 2;
    const bool firstEndsInPair = text[half - 1].isHighSurrogate();
    const bool lastBeginsInPair = text[text.size() - half].isLowSurrogate();
    return text.first(firstEndsInPair ? half - 1 : half) + u'…' +
           text.last(lastBeginsInPair ? half - 1 : half);
}

} // namespace quor
