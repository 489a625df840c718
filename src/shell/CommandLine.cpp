#include "shell/CommandLine.h"

#include "core/Printable.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// An option of the command line.
struct Option {
    QString name;
    QString valueName{}; ///< empty for one without a value
    QString value{};     ///< what it wants, for a complaint; empty where it does without, too
    /// The options one of which it stands with; empty for one that stands alone.
    QStringList with{};
};

const std::vector<Option>& options() {
    static const std::vector<Option> all{
        {.name = u"open"_s, .valueName = u"FILE"_s},
        {.name = u"export"_s, .valueName = u"FILE"_s, .value = u"il nome di un file"_s},
        {.name = u"report"_s, .valueName = u"FILE"_s, .value = u"il nome di un file"_s},
        {.name = u"print"_s, .with = {u"export"_s}},
        {.name = u"format"_s,
         .valueName = u"FORMATO"_s,
         .value = u"text, json, csv o ics"_s,
         .with = {u"report"_s}},
        {.name = u"days"_s,
         .valueName = u"N"_s,
         .value = u"un numero da 1 a %1"_s.arg(maximumReportDays),
         .with = {u"report"_s}},
        {.name = u"output"_s,
         .valueName = u"DOVE"_s,
         .value = u"il nome di una cartella o di un file"_s,
         .with = {u"export"_s, u"report"_s}},
        {.name = u"date"_s,
         .valueName = u"DATA"_s,
         .value = u"una data"_s,
         .with = {u"export"_s, u"report"_s}},
        {.name = u"help"_s},
        {.name = u"version"_s},
    };
    return all;
}

QString dashed(const QString& name) {
    return u"--"_s + name;
}

QString wants(const Option& option) {
    return u"l'opzione %1 vuole %2"_s.arg(dashed(option.name), option.value);
}

/// An option as it was typed: after one dash the toolkit takes each letter for an option.
QString unknownOption(const QString& name, const QStringList& arguments) {
    const auto oneDash = std::ranges::find_if(arguments, [&name](const QString& argument) {
        return argument.startsWith(u'-' + name) && !argument.startsWith(u"--"_s);
    });
    return oneDash == arguments.end() ? dashed(name) : *oneDash;
}

/// What is wrong with arguments that cannot be told apart.
QString complaint(const QCommandLineParser& parser, const QStringList& arguments) {
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        return u"opzione sconosciuta: "_s + unknownOption(unknown.constFirst(), arguments);
    }
    for (const Option& option : options()) {
        if (!option.value.isEmpty() && arguments.constLast() == dashed(option.name)) {
            return wants(option);
        }
    }
    return u"un'opzione ha un valore di troppo: "_s + arguments.join(u' ');
}

/// What is wrong with options of which each is right by itself.
std::optional<QString> misfit(const QCommandLineParser& parser) {
    QStringList actions; // they stand alone
    for (const QString& name : {u"open"_s, u"export"_s, u"report"_s}) {
        if (parser.isSet(name)) {
            actions << dashed(name);
        }
    }
    if (actions.size() > 1) {
        return u"le opzioni %1 e %2 non vanno insieme"_s.arg(actions[0], actions[1]);
    }
    for (const Option& option : options()) {
        if (!parser.isSet(option.name)) {
            continue;
        }
        const auto isSet = [&](const QString& name) { return parser.isSet(name); };
        if (!option.with.isEmpty() && std::ranges::none_of(option.with, isSet)) {
            return u"l'opzione %1 vale solo con --%2"_s.arg(dashed(option.name),
                                                            option.with.join(u" o --"_s));
        }
        if (!option.value.isEmpty() && parser.value(option.name).trimmed().isEmpty()) {
            return wants(option);
        }
    }
    return std::nullopt;
}

std::optional<ReportFormat> reportFormat(const QString& name) {
    const std::array<std::pair<QString, ReportFormat>, 4> formats{
        {{u"text"_s, ReportFormat::text},
         {u"json"_s, ReportFormat::json},
         {u"csv"_s, ReportFormat::csv},
         {u"ics"_s, ReportFormat::calendar}}};
    const auto* const found =
        std::ranges::find(formats, name, &std::pair<QString, ReportFormat>::first);
    return found == formats.end() ? std::nullopt : std::optional(found->second);
}

/// Digits and nothing else.
std::optional<std::int32_t> reportDays(const QString& text) {
    bool isNumber = std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
    const int days = isNumber ? text.toInt(&isNumber) : 0;
    return isNumber && days >= 1 && days <= maximumReportDays ? std::optional(days) : std::nullopt;
}

/// An argument may hold what would break the line, or be a command to the terminal.
StartRequest wrong(const QString& text) {
    return {.mode = StartMode::wrongUse, .text = printable(text)};
}

/// Of an option that has a value, but none that it can use.
StartRequest badValue(const QCommandLineParser& parser, const QString& name) {
    return wrong(wants(*std::ranges::find(options(), name, &Option::name)) + u": "_s +
                 parser.value(name));
}

StartRequest exportRequest(const QCommandLineParser& parser) {
    return {.mode = StartMode::exportFile,
            .batch = {.file = parser.value(u"export"_s),
                      .outputFolder = parser.value(u"output"_s),
                      .forPrint = parser.isSet(u"print"_s),
                      .date = parser.value(u"date"_s)}};
}

StartRequest reportRequest(const QCommandLineParser& parser) {
    StartRequest request{.mode = StartMode::reportFile,
                         .report = {.file = parser.value(u"report"_s),
                                    .date = parser.value(u"date"_s),
                                    .days = {},
                                    .outputFile = parser.value(u"output"_s)}};
    ReportRequest& report = request.report;
    if (parser.isSet(u"format"_s)) {
        const auto format = reportFormat(parser.value(u"format"_s));
        if (!format) {
            return badValue(parser, u"format"_s);
        }
        report.format = *format;
    }
    if (parser.isSet(u"days"_s)) {
        report.days = reportDays(parser.value(u"days"_s));
        if (!report.days) {
            return badValue(parser, u"days"_s);
        }
        if (report.format != ReportFormat::csv && report.format != ReportFormat::calendar) {
            return wrong(u"l'opzione --days vale solo con --format csv o ics"_s);
        }
    }
    return request;
}

} // namespace

StartRequest parseArguments(const QStringList& arguments) {
    const QString text = arguments.join(u' ');
    if (text.isEmpty()) {
        return {};
    }
    if (!arguments.constFirst().startsWith(u"--"_s)) {
        return {.mode = StartMode::commandLineText, .text = text};
    }
    // What is left of the desktop entry's "--open %f" when the program is chosen from a menu.
    if (arguments == QStringList{u"--open"_s}) {
        return {};
    }

    QCommandLineParser parser;
    for (const Option& option : options()) {
        parser.addOption(QCommandLineOption(option.name, {}, option.valueName));
    }
    if (!parser.parse(QStringList{u"quor"_s} + arguments)) {
        return wrong(complaint(parser, arguments));
    }
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(u"argomento di troppo: "_s + parser.positionalArguments().constFirst());
    }
    if (parser.isSet(u"help"_s)) {
        return {.mode = StartMode::showHelp};
    }
    if (parser.isSet(u"version"_s)) {
        return {.mode = StartMode::showVersion};
    }
    if (const auto problem = misfit(parser)) {
        return wrong(*problem);
    }
    if (parser.isSet(u"export"_s)) {
        return exportRequest(parser);
    }
    if (parser.isSet(u"report"_s)) {
        return reportRequest(parser);
    }
    if (parser.isSet(u"open"_s)) {
        return {.mode = StartMode::openFile, .text = parser.value(u"open"_s)};
    }
    return {};
}

QString usageText() {
    return u"Uso: quor [OPZIONE]\n"
           "     quor '\"FILE\"'\n"
           "     quor --export FILE [--print] [--output DIR] [--date DATA]\n"
           "     quor --report FILE [--format text|json|csv|ics] [--date DATA] [--days N]\n"
           "          [--output FILE]\n"
           "\n"
           "Calcola i bioritmi di una persona o di un gruppo.\n"
           "\n"
           "  --open [FILE]  apre un bioritmo (.bio) o un sistema (.brs), se indicato\n"
           "  --export FILE  esporta pagina e immagini di un bioritmo o di tutto un sistema,\n"
           "                 senza finestre e senza domande\n"
           "    --print      nella variante per la stampa\n"
           "    --output DIR nella cartella DIR invece che in quella delle esportazioni\n"
           "    --date DATA  per questa data di calcolo invece di quella del file\n"
           "  --report FILE  scrive stato del giorno, previsioni e compatibilità di un\n"
           "                 bioritmo o di un sistema, senza finestre e senza domande\n"
           "    --format F   come testo (text, se non è detto altro), json, tabella (csv)\n"
           "                 con una riga al giorno, o calendario (ics) dei giorni notevoli\n"
           "    --date DATA  per questa data di calcolo invece di quella del file\n"
           "    --days N     csv e ics: per N giorni da questa data, da 1 a 100000 (365)\n"
           "    --output FILE  in questo file invece che sullo standard output\n"
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

} // namespace quor
