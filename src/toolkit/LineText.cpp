#include "toolkit/LineText.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr qsizetype longestShown = 1000;

} // namespace

QString beginningOf(const QString& text, qsizetype longest) {
    if (text.size() <= longest) {
        return text;
    }
    const bool endsInPair = text[longest - 1].isHighSurrogate();
    return text.first(endsInPair ? longest - 1 : longest) + u'…';
}

QString endsOf(const QString& text, qsizetype longest) {
    if (text.size() <= longest) {
        return text;
    }
    const qsizetype half = longest / 2;
    const bool firstEndsInPair = text[half - 1].isHighSurrogate();
    const bool lastBeginsInPair = text[text.size() - half].isLowSurrogate();
    return text.first(firstEndsInPair ? half - 1 : half) + u'…' +
           text.last(lastBeginsInPair ? half - 1 : half);
}

QString lineText(const QString& text) {
    return beginningOf(text, longestShown);
}

QString lineEnds(const QString& text) {
    return endsOf(text, longestShown);
}

} // namespace quor
