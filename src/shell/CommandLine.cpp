#include "shell/CommandLine.h"

#include <QCommandLineParser>

#include <optional>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// What an option that stands last and without its value lacks.
std::optional<QString> missingValue(const QString& option) {
    if (option == u"--export"_s) {
        return u"l'opzione --export vuole il nome di un file"_s;
    }
    if (option == u"--output"_s) {
        return u"l'opzione --output vuole il nome di una cartella"_s;
    }
    if (option == u"--date"_s) {
        return u"l'opzione --date vuole una data"_s;
    }
    return std::nullopt;
}

} // namespace

StartRequest parseArguments(const QStringList& arguments) {
    if (arguments.isEmpty()) {
        return {};
    }
    if (!arguments.constFirst().startsWith(u"--"_s)) {
        return {.mode = StartMode::commandLineText, .text = arguments.join(u' ')};
    }
    // What is left of the desktop entry's "--open %f" when the program is chosen from a menu.
    if (arguments == QStringList{u"--open"_s}) {
        return {};
    }

    const QCommandLineOption open(u"open"_s, {}, u"FILE"_s);
    const QCommandLineOption exporting(u"export"_s, {}, u"FILE"_s);
    const QCommandLineOption forPrint(u"print"_s);
    const QCommandLineOption output(u"output"_s, {}, u"DIR"_s);
    const QCommandLineOption date(u"date"_s, {}, u"DATA"_s);
    const QCommandLineOption help(u"help"_s);
    const QCommandLineOption version(u"version"_s);
    QCommandLineParser parser;
    parser.addOptions({open, exporting, forPrint, output, date, help, version});

    const auto wrong = [](const QString& text) {
        return StartRequest{.mode = StartMode::wrongUse, .text = text};
    };
    if (!parser.parse(QStringList{u"quor"_s} + arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty()) {
            return wrong(u"opzione sconosciuta: --"_s + unknown.constFirst());
        }
        if (const auto missing = missingValue(arguments.constLast())) {
            return wrong(*missing);
        }
        return wrong(u"un'opzione ha un valore di troppo: "_s + arguments.join(u' '));
    }
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(u"argomento di troppo: "_s + parser.positionalArguments().constFirst());
    }
    if (parser.isSet(help)) {
        return {.mode = StartMode::showHelp};
    }
    if (parser.isSet(version)) {
        return {.mode = StartMode::showVersion};
    }
    if (parser.isSet(exporting)) {
        if (parser.isSet(open)) {
            return wrong(u"le opzioni --open e --export non vanno insieme"_s);
        }
        return {.mode = StartMode::exportFile,
                .text = {},
                .batch = {.file = parser.value(exporting),
                          .outputFolder = parser.value(output),
                          .forPrint = parser.isSet(forPrint),
                          .date = parser.value(date)}};
    }
    for (const auto* option : {&forPrint, &output, &date}) {
        if (parser.isSet(*option)) {
            return wrong(
                u"l'opzione --%1 vale solo con --export"_s.arg(option->names().constFirst()));
        }
    }
    if (parser.isSet(open)) {
        return {.mode = StartMode::openFile, .text = parser.value(open)};
    }
    return {};
}

QString usageText() {
    return u"Uso: quor [OPZIONE]\n"
           "     quor '\"FILE\"'\n"
           "     quor --export FILE [--print] [--output DIR] [--date DATA]\n"
           "\n"
           "Calcola i bioritmi di una persona o di un gruppo.\n"
           "\n"
           "  --open [FILE]  apre un bioritmo (.bio) o un sistema (.brs), se indicato\n"
           "  --export FILE  esporta pagina e immagini di un bioritmo o di tutto un sistema,\n"
           "                 senza finestre e senza domande\n"
           "    --print      nella variante per la stampa\n"
           "    --output DIR nella cartella DIR invece che in quella delle esportazioni\n"
           "    --date DATA  per questa data di calcolo invece di quella del file\n"
           "  --help         mostra questo aiuto ed esce\n"
           "  --version      mostra la versione ed esce\n"
           "\n"
           "Senza opzioni gli argomenti, uniti da uno spazio, sono il percorso di un file\n"
           "racchiuso tra virgolette; se il file non esiste, il programma si avvia vuoto.\n"_s;
}

QString pathInCommandLineText(const QString& text) {
    const QString trimmed = text.trimmed();
    return trimmed.size() > 2 ? trimmed.sliced(1, trimmed.size() - 2) : QString();
}

FileKind fileKind(const QString& path) {
    const QString ending = path.right(3).toLower();
    if (ending == u"bio"_s) {
        return FileKind::biorhythm;
    }
    return ending == u"brs"_s ? FileKind::system : FileKind::other;
}

} // namespace quor
