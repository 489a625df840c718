#include "shell/CommandLine.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace quor {

StartRequest parseArguments(const QStringList& arguments) {
    if (arguments.isEmpty()) {
        return {};
    }
    if (!arguments.constFirst().startsWith(u"--"_s)) {
        return {.mode = StartMode::commandLineText, .text = arguments.join(u' ')};
    }

    const QCommandLineOption open(u"open"_s, {}, u"FILE"_s);
    const QCommandLineOption help(u"help"_s);
    const QCommandLineOption version(u"version"_s);
    QCommandLineParser parser;
    parser.addOptions({open, help, version});

    const auto wrong = [](const QString& text) {
        return StartRequest{.mode = StartMode::wrongUse, .text = text};
    };
    if (!parser.parse(QStringList{u"quor"_s} + arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty()) {
            return wrong(u"opzione sconosciuta: --"_s + unknown.constFirst());
        }
        if (arguments.constLast() == u"--open"_s) {
            return wrong(u"l'opzione --open vuole il nome di un file"_s);
        }
        return wrong(u"un'opzione ha un valore di troppo: "_s + arguments.join(u' '));
    }
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(u"argomento di troppo: "_s + parser.positionalArguments().constFirst());
    }
    if (parser.isSet(help)) {
        return {.mode = StartMode::showHelp, .text = {}};
    }
    if (parser.isSet(version)) {
        return {.mode = StartMode::showVersion, .text = {}};
    }
    if (parser.isSet(open)) {
        return {.mode = StartMode::openFile, .text = parser.value(open)};
    }
    return {};
}

QString usageText() {
    return u"Uso: quor [OPZIONE]\n"
           "     quor '\"FILE\"'\n"
           "\n"
           "Calcola i bioritmi di una persona o di un sistema di persone.\n"
           "\n"
           "  --open FILE  apre un bioritmo (.bio) o un sistema (.brs)\n"
           "  --help       mostra questo aiuto ed esce\n"
           "  --version    mostra la versione ed esce\n"
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
