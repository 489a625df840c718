// Any arguments that the program can be started with, a NUL between one and the next: each start
// means exactly one thing, what is meant can be said again in other words, and what is wrong is
// said in one line.

#include "Check.h"
#include "core/Printable.h"
#include "shell/CommandLine.h"
#include "storage/FileKind.h"

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using quor::FileKind;
using quor::StartMode;
using quor::fuzz::check;

bool isEmpty(const quor::BatchRequest& batch) {
    return batch.file.isEmpty() && batch.outputFolder.isEmpty() && !batch.forPrint &&
           batch.date.isEmpty();
}

bool isEmpty(const quor::ReportRequest& report) {
    return report.file.isEmpty() && report.format == quor::ReportFormat::text &&
           report.date.isEmpty() && !report.days && report.outputFile.isEmpty();
}

bool isSame(const quor::StartRequest& a, const quor::StartRequest& b) {
    return a.mode == b.mode && a.text == b.text && a.batch.file == b.batch.file &&
           a.batch.outputFolder == b.batch.outputFolder && a.batch.forPrint == b.batch.forPrint &&
           a.batch.date == b.batch.date && a.report.file == b.report.file &&
           a.report.format == b.report.format && a.report.date == b.report.date &&
           a.report.days == b.report.days && a.report.outputFile == b.report.outputFile;
}

/// One line that a terminal can be given: nothing in it moves the cursor.
bool isOneLine(const QString& text) {
    return std::ranges::none_of(text, [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
               c.category() == QChar::Separator_Paragraph;
    });
}

/// The request, asked for with values apart from their options, and joined by equals signs.
void checkAskedAgain(const quor::StartRequest& request,
                     const std::vector<std::pair<QString, QString>>& options) {
    QStringList apart;
    QStringList together;
    for (const auto& [name, value] : options) {
        if (!value.isEmpty()) {
            apart << name << value;
            together.prepend(name + u'=' + value); // and in another order
        }
    }
    if (request.batch.forPrint) {
        apart.prepend(u"--print"_s);
        together << u"--print"_s;
    }
    check(isSame(quor::parseArguments(apart), request), "it can be asked for again");
    check(isSame(quor::parseArguments(together), request), "with equals signs too");
}

void checkExport(const quor::StartRequest& request) {
    const quor::BatchRequest& batch = request.batch;
    checkAskedAgain(request, {{u"--export"_s, batch.file},
                              {u"--output"_s, batch.outputFolder},
                              {u"--date"_s, batch.date}});
}

QString nameOf(quor::ReportFormat format) {
    switch (format) {
    case quor::ReportFormat::json:
        return u"json"_s;
    case quor::ReportFormat::csv:
        return u"csv"_s;
    case quor::ReportFormat::calendar:
        return u"ics"_s;
    default:
        return u"text"_s;
    }
}

void checkReport(const quor::StartRequest& request) {
    const quor::ReportRequest& report = request.report;
    check(!report.days || (*report.days >= 1 && *report.days <= quor::maximumReportDays),
          "the days are in range");
    checkAskedAgain(request,
                    {{u"--report"_s, report.file},
                     {u"--format"_s, nameOf(report.format)},
                     {u"--date"_s, report.date},
                     {u"--days"_s, report.days ? QString::number(*report.days) : QString()},
                     {u"--output"_s, report.outputFile}});
}

void checkWrongUse(const QString& text, const QStringList& arguments) {
    check(!text.isEmpty() && isOneLine(text), "what is wrong is said in one line");
    const auto unknown = u"opzione sconosciuta: "_s;
    if (text.startsWith(unknown)) {
        const QString option = text.sliced(unknown.size());
        check(std::ranges::any_of(
                  arguments,
                  [&option](const auto& a) { return quor::printable(a).startsWith(option); }),
              "an unknown option is told as it was typed, as far as a terminal can take it");
    }
}

void checkMeaning(const quor::StartRequest& request, const QStringList& arguments) {
    switch (request.mode) {
    case StartMode::plain:
        check(request.text.isEmpty(), "nothing is named");
        break;
    case StartMode::commandLineText:
        check(request.text == arguments.join(u' '),
              "the text is all arguments, joined by one blank");
        break;
    case StartMode::openFile:
        check(isSame(quor::parseArguments({u"--open"_s, request.text}), request) &&
                  isSame(quor::parseArguments({u"--open="_s + request.text}), request),
              "the file can be named again");
        break;
    case StartMode::exportFile:
        check(request.text.isEmpty(), "an export has no other text");
        checkExport(request);
        break;
    case StartMode::reportFile:
        check(request.text.isEmpty(), "a report has no other text");
        checkReport(request);
        break;
    case StartMode::showHelp:
        check(arguments.contains(u"--help"_s) && request.text.isEmpty(), "help was asked for");
        break;
    case StartMode::showVersion:
        check(arguments.contains(u"--version"_s) && request.text.isEmpty(),
              "the version was asked for");
        break;
    case StartMode::wrongUse:
        checkWrongUse(request.text, arguments);
        break;
    }
    check(request.mode == StartMode::exportFile || isEmpty(request.batch),
          "only an export has something to export");
    check(request.mode == StartMode::reportFile || isEmpty(request.report),
          "only a report has something to report");
    const bool isText =
        !arguments.join(u' ').isEmpty() && !arguments.constFirst().startsWith(u"--"_s);
    check((request.mode == StartMode::commandLineText) == isText,
          "a first argument that is no option makes all of them a text, unless that is empty");
}

QChar asciiLower(QChar c) {
    return c >= u'A' && c <= u'Z' ? QChar(c.unicode() + (u'a' - u'A')) : c;
}

void checkPath(const QString& text) {
    const QString path = quor::pathInCommandLineText(text);
    const QString trimmed = text.trimmed();
    check(path.isEmpty() ? trimmed.size() <= 2 : trimmed.sliced(1).startsWith(path),
          "a path is what stands between the first and the last character");
    check(quor::pathInCommandLineText(u"  "_s + text + u' ') == path,
          "blanks around do not matter");
    check(quor::pathInCommandLineText(u'"' + text + u'"') == text, "a quoted path is found");

    QString ending = text.right(3);
    std::ranges::transform(ending, ending.begin(), asciiLower);
    const FileKind kind = quor::fileKind(text);
    check((kind == FileKind::biorhythm) == (ending == u"bio"_s) &&
              (kind == FileKind::system) == (ending == u"brs"_s),
          "the last three characters say the kind, in any letter case");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString all = quor::fuzz::textOf(data, size);
    const QStringList arguments = all.split(u'\0'); // an empty input is one empty argument
    checkMeaning(quor::parseArguments(arguments), arguments);
    checkPath(arguments.join(u' '));
    return 0;
}
