#include "toolkit/BoxText.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The line with places to break in words that are longer than the path of a file usually is.
QString breakable(const QString& line) {
    constexpr qsizetype longestWord = 70;
    constexpr qsizetype longestPiece = 50;
    constexpr QChar breakHere(0x200B);
    QStringList words = line.split(u' ');
    for (QString& word : words) {
        qsizetype end = word.size() > longestWord ? longestPiece : word.size();
        for (; end < word.size(); end += longestPiece + 1) {
            if (word[end].isLowSurrogate()) {
                --end;
            }
            word.insert(end, breakHere);
        }
    }
    return words.join(u' ');
}

} // namespace

QString boxText(const QString& text) {
    constexpr qsizetype longestLine = 600;
    constexpr qsizetype mostLines = 20;
    QStringList lines = text.split(u'\n');
    if (lines.size() > mostLines) {
        lines = lines.first(mostLines) << u"…"_s;
    }
    for (QString& line : lines) {
        if (line.size() > longestLine) {
            const qsizetype half = longestLine / 2;
            const bool inPair = line[half - 1].isHighSurrogate();
            const bool endInPair = line[line.size() - half].isLowSurrogate();
            line = line.first(inPair ? half - 1 : half) + u'…' +
                   line.last(endInPair ? half - 1 : half);
        }
        line = breakable(line);
    }
    return lines.join(u'\n');
}

} // namespace quor
