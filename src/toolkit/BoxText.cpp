#include "toolkit/BoxText.h"

#include "toolkit/LineText.h"

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
        line = breakable(endsOf(line, longestLine));
    }
    return lines.join(u'\n');
}

} // namespace quor
