#include "toolkit/LineText.h"

using namespace Qt::StringLiterals;

namespace quor {

QString lineText(const QString& text) {
    constexpr qsizetype longest = 1000;
    if (text.size() <= longest) {
        return text;
    }
    const bool endsInPair = text[longest - 1].isHighSurrogate();
    return text.first(endsInPair ? longest - 1 : longest) + u'…';
}

} // namespace quor
