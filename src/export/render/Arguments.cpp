#include "export/render/Arguments.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::render {

namespace {

// Millimetres.
constexpr QSizeF a4(210, 297);
constexpr double usualMargin = 10;
constexpr double smallestSide = 50;
constexpr double greatestSide = 2000;
/// What the margins have to leave for the page.
constexpr double smallestText = 30;

std::optional<QSizeF> parsePaper(const QString& text) {
    static const QRegularExpression sides(u"^(\\d+(?:\\.\\d+)?)x(\\d+(?:\\.\\d+)?)$"_s);
    const QRegularExpressionMatch match = sides.match(text);
    const QSizeF paper(match.captured(1).toDouble(), match.captured(2).toDouble());
    const auto fits = [](double side) { return side >= smallestSide && side <= greatestSide; };
    if (!match.hasMatch() || !fits(paper.width()) || !fits(paper.height())) {
        return {};
    }
    return paper;
}

/// One for all sides, or left, top, right, bottom.
std::optional<QMarginsF> parseMargins(const QString& text) {
    static const QRegularExpression numbers(u"^\\d+(?:\\.\\d+)?(?:(?:,\\d+(?:\\.\\d+)?){3})?$"_s);
    if (!numbers.match(text).hasMatch()) {
        return {};
    }
    const QStringList sides = text.split(u',');
    const auto side = [&sides](qsizetype i) {
        return sides.value(i, sides.constFirst()).toDouble();
    };
    return QMarginsF(side(0), side(1), side(2), side(3));
}

bool leavesRoom(const QSizeF& paper, const QMarginsF& margins) {
    const QSizeF text = paper.shrunkBy(margins);
    return std::min(text.width(), text.height()) >= smallestText;
}

} // namespace

Arguments parseArguments(const QStringList& words) {
    Arguments arguments{.help = false,
                        .fault = {},
                        .page = {},
                        .pdf = {},
                        .paper = a4,
                        .margins = {usualMargin, usualMargin, usualMargin, usualMargin}};
    const auto wrong = [&arguments](const QString& fault) {
        arguments.fault = fault;
        return arguments;
    };
    QStringList files;
    bool options = true;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words.at(i);
        if (!options || !word.startsWith(u"--"_s)) {
            files << word;
        } else if (word == u"--"_s) {
            options = false;
        } else if (word == u"--help"_s) {
            arguments.help = true;
            return arguments;
        } else if (word == u"--paper"_s) {
            const auto paper = parsePaper(words.value(++i));
            if (!paper) {
                return wrong(u"--paper vuole LARGHEZZAxALTEZZA in millimetri"_s);
            }
            arguments.paper = *paper;
        } else if (word == u"--margin"_s) {
            const auto margins = parseMargins(words.value(++i));
            if (!margins) {
                return wrong(u"--margin vuole un numero di millimetri, o quattro"_s);
            }
            arguments.margins = *margins;
        } else if (word == u"--grey"_s) {
            arguments.grey = true;
        } else {
            return wrong(u"opzione sconosciuta: %1"_s.arg(word));
        }
    }
    constexpr qsizetype fileCount = 2;
    if (files.size() != fileCount || files.constFirst().isEmpty() || files.constLast().isEmpty()) {
        return wrong(u"servono la pagina e il file da scrivere"_s);
    }
    if (!leavesRoom(arguments.paper, arguments.margins)) {
        return wrong(u"i margini non lasciano posto alla pagina"_s);
    }
    arguments.page = files.constFirst();
    arguments.pdf = files.constLast();
    return arguments;
}

QString usageText() {
    return u"Uso: quor-render [OPZIONI] PAGINA.html FILE.pdf\n"
           "Impagina una pagina HTML di questo computer in un file PDF. Gli script della pagina "
           "non\n"
           "vengono eseguiti; della rete, e dei file fuori dalla sua cartella, non legge nulla.\n"
           "\n"
           "  --paper LxA   foglio in millimetri (210x297 se non indicato)\n"
           "  --margin M    margine in millimetri (10 se non indicato); anche quattro, separati da "
           "virgole:\n"
           "                sinistra, sopra, destra, sotto\n"
           "  --grey        senza colori\n"
           "  --help        mostra queste righe\n"
           "\n"
           "Termina con 0 se il file è scritto, 1 se la pagina manca o non si può impaginare,\n"
           "2 se il comando è sbagliato, 3 se il file non si può scrivere.\n"_s;
}

} // namespace quor::render
