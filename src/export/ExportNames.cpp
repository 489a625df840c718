#include "export/ExportNames.h"

#include <QCryptographicHash>
#include <QHash>
#include <QRegularExpression>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QLatin1StringView printMark("stampa_");

/// Bytes of a file's name on every usual file system, and what of it a label cannot have: the date,
/// the mark of the print variant (so that both variants are cut at the same place), the longest
/// product's name, and the ending that a file bears until it is whole.
constexpr qsizetype longestFileName = 255;
constexpr qsizetype longestProduct = sizeof("StatoSettimana0.png") - 1;
constexpr qsizetype ofUnfinished = sizeof(".XXXXXX") - 1;
constexpr qsizetype longestLabel = longestFileName - qsizetype{sizeof("_31-12-9999_") - 1} -
                                   printMark.size() - longestProduct - ofUnfinished;

constexpr qsizetype markDigits = 8;

bool isForbidden(QChar character) {
    constexpr char16_t delete_ = 0x7F;
    constexpr char16_t lastControl = 0x9F;
    const char16_t code = character.unicode();
    return code < u' ' || (code >= delete_ && code <= lastControl) ||
           QStringView(u"/\\:*?\"<>|").contains(character);
}

/// As much of a text as fits, without a character cut in two.
QString beginning(const QString& whole, qsizetype bytes) {
    // A unit is a byte at least. Two units more tell whether a character goes on.
    const QString text = whole.first(std::min(whole.size(), bytes + 2));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    qsizetype length = 0;
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        length += QStringView(text).sliced(end, next - end).toUtf8().size();
        if (length > bytes) {
            break;
        }
        end = next;
    }
    return text.first(end);
}

/// What tells a head from others that would look the same in a file's name.
QString mark(const QString& head) {
    const QByteArray digest = QCryptographicHash::hash(head.toUtf8(), QCryptographicHash::Sha1);
    return u'~' + QString::fromLatin1(digest.toHex().first(markDigits));
}

/// All of a prefix that comes before the date.
struct Label {
    QString text;
    bool isMarked = false;
};

/// A head as far as it can matter where its label is cut to so many bytes. Composing makes one unit
/// of four at most.
QString window(const QString& head, qsizetype bytes) {
    return head.first(std::min(head.size(), 4 * bytes + 1));
}

/// The head, cut where it has to be, with its mark and, where that is not enough, its place.
Label markedLabel(const QString& head, const QString& place, qsizetype bytes) {
    const QString ending = mark(head) + place;
    const QString part = fileNamePart(window(head, bytes));
    return {.text = beginning(part, bytes - ending.size()) + ending, .isMarked = true};
}

/// The head as it stands where it can be a file's name, else with a mark of the whole. A head that
/// itself ends like a marked one is marked too, so that the two kinds stay apart.
Label label(const QString& head, qsizetype bytes) {
    static const QRegularExpression marked(u"~[0-9a-f]{8}(-[0-9]+)?$"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const QString start = window(head, bytes);
    const QString part = fileNamePart(start);
    const bool isWhole = part == start.normalized(QString::NormalizationForm_C) &&
                         part.toUtf8().size() <= bytes && !part.contains(marked);
    return isWhole ? Label{.text = part} : markedLabel(head, {}, bytes);
}

/// The labels of a list of heads, of so many bytes at most. No two are equal, nor would be on a
/// file system that takes upper and lower case for the same: heads that would be get their marks,
/// and those that are equal all the same (equal names, equal marks) their place in the list.
std::vector<Label> labels(const std::vector<QString>& heads, qsizetype bytes) {
    std::vector<Label> result;
    result.reserve(heads.size());
    for (const QString& head : heads) {
        result.push_back(label(head, bytes));
    }
    for (const bool withPlace : {false, true}) {
        QHash<QString, int> uses;
        for (const Label& one : result) {
            ++uses[one.text.toCaseFolded()];
        }
        for (std::size_t i = 0; i < heads.size(); ++i) {
            const bool isShared = uses.value(result[i].text.toCaseFolded()) > 1;
            if (isShared && (withPlace || !result[i].isMarked)) {
                const QString place = withPlace ? u'-' + QString::number(i + 1) : QString();
                result[i] = markedLabel(heads[i], place, bytes);
            }
        }
    }
    return result;
}

/// The part of a prefix that comes after its label.
QString tail(const Program& program, PageVariant variant) {
    const QString date = u'_' + exportDate(program.biorhythm.calculationDate) + u'_';
    return variant == PageVariant::print ? date + printMark : date;
}

/// The labels of these members of the open system, with its base in front.
std::vector<Label> memberLabels(const Program& program, ExportScope scope,
                                std::span<const SystemMember> members) {
    const QString& path = program.state.systemFilePath;
    const bool isUntitled = path.isEmpty() && scope == ExportScope::person;
    const QString base = (isUntitled ? u"UntitledSystem"_s : baseName(path)) + u'_';
    std::vector<QString> heads;
    heads.reserve(members.size());
    for (const SystemMember& member : members) {
        heads.push_back(base + member.name);
    }
    return labels(heads, longestLabel);
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

QString exportPrefix(const Program& program, PageVariant variant) {
    const AppState& state = program.state;
    const Biorhythm& biorhythm = program.biorhythm;
    if (!state.systemOpen) {
        const QString head = state.filePath.isEmpty() ? biorhythm.name : baseName(state.filePath);
        return label(head, longestLabel).text + tail(program, variant);
    }
    const SystemMember person{.name = biorhythm.name, .birthDate = biorhythm.birthDate};
    std::vector<SystemMember> members(state.members().begin(), state.members().end());
    auto place = std::ranges::find(members, person);
    if (place == members.end()) {
        place = std::ranges::find(members, person.name, &SystemMember::name);
    }
    if (place == members.end()) {
        place = members.insert(place, person);
    }
    const auto index = static_cast<std::size_t>(place - members.begin());
    return memberLabels(program, ExportScope::person, members).at(index).text +
           tail(program, variant);
}

std::vector<QString> exportPrefixes(const Program& program, PageVariant variant) {
    std::vector<QString> prefixes;
    for (const Label& one :
         memberLabels(program, ExportScope::wholeSystem, program.state.members())) {
        prefixes.push_back(one.text + tail(program, variant));
    }
    return prefixes;
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
