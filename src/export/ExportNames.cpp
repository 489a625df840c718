#include "export/ExportNames.h"

#include <QCryptographicHash>
#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Bytes of a file's name on every usual file system, and what of it a prefix cannot have: the
/// longest product's name, and the ending that a file bears until it is whole.
constexpr qsizetype longestFileName = 255;
constexpr qsizetype longestProduct = sizeof("StatoSettimana0.png") - 1;
constexpr qsizetype ofUnfinished = sizeof(".XXXXXX") - 1;
constexpr qsizetype longestPrefix = longestFileName - longestProduct - ofUnfinished;

constexpr qsizetype markDigits = 8;

bool isForbidden(QChar character) {
    return u"/\\:*?\"<>|"_s.contains(character) || character.category() == QChar::Other_Control;
}

/// The text, or as many of its characters as fit and a mark of the whole.
QString shortened(const QString& text, qsizetype bytes) {
    const QByteArray whole = text.toUtf8();
    if (whole.size() <= bytes) {
        return text;
    }
    const QString mark =
        u'~' +
        QString::fromLatin1(
            QCryptographicHash::hash(whole, QCryptographicHash::Sha1).toHex().first(markDigits));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    qsizetype length = mark.size();
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        length += QStringView(text).sliced(end, next - end).toUtf8().size();
        if (length > bytes) {
            break;
        }
        end = next;
    }
    return text.first(end) + mark;
}

/// All of a prefix that comes before the date.
QString head(const Program& program, ExportScope scope) {
    const AppState& state = program.state;
    const QString& name = program.biorhythm.name;
    if (!state.systemOpen) {
        return state.filePath.isEmpty() ? name : baseName(state.filePath);
    }
    const bool untitled = state.systemFilePath.isEmpty() && scope == ExportScope::person;
    const QString base = untitled ? u"UntitledSystem"_s : baseName(state.systemFilePath);
    return base + u'_' + name;
}

} // namespace

QString fileNamePart(const QString& text) {
    QString part = text.normalized(QString::NormalizationForm_C);
    for (qsizetype i = 0; i < part.size(); ++i) {
        const bool pair =
            part[i].isHighSurrogate() && i + 1 < part.size() && part[i + 1].isLowSurrogate();
        if (pair) {
            ++i;
        } else if (part[i].isSurrogate() || isForbidden(part[i])) {
            part[i] = u'_';
        }
    }
    return part;
}

QString baseName(const QString& path) {
    const qsizetype folderEnd = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.sliced(folderEnd + 1).section(u'.', 0, 0).trimmed();
}

QString exportDate(DateValue date) {
    return ShortDateFormat{.order = DateOrder::dayMonthYear, .separator = u'-'}.text(date);
}

QString exportPrefix(const Program& program, ExportScope scope, PageVariant variant) {
    const QString date = u'_' + exportDate(program.biorhythm.calculationDate) + u'_';
    const QString printMark = u"stampa_"_s;
    // Both variants are cut at the same place.
    const qsizetype room = longestPrefix - date.size() - printMark.size();
    const QString prefix = shortened(fileNamePart(head(program, scope)), room) + date;
    return variant == PageVariant::print ? prefix + printMark : prefix;
}

QString graphFile(const QString& prefix) {
    return prefix + u"grafico.png"_s;
}

QString weekFile(const QString& prefix, WeekRow row) {
    return prefix + u"StatoSettimana"_s + QString::number(static_cast<int>(row)) + u".png"_s;
}

QString summaryFile(const QString& prefix) {
    return prefix + u"Riepilogo.html"_s;
}

QString pathPrefix(const QString& folder, const QString& prefix) {
    return folder + u'/' + prefix;
}

} // namespace quor
