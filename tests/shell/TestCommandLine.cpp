#include "shell/TestCommandLine.h"

#include "shell/CommandLine.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestCommandLine::options_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QStringList& arguments, StartMode mode,
                        const QString& text) {
        QTest::newRow(name) << arguments << static_cast<int>(mode) << text;
    };
    row("nothing", {}, StartMode::plain, {});
    row("one empty argument", {QString()}, StartMode::plain, {});
    row("a blank", {u" "_s}, StartMode::commandLineText, u" "_s);
    row("open", {u"--open"_s, u"/a b/c.bio"_s}, StartMode::openFile, u"/a b/c.bio"_s);
    row("open with an equals sign", {u"--open=c.bio"_s}, StartMode::openFile, u"c.bio"_s);
    row("open a file named like an option", {u"--open"_s, u"--x.bio"_s}, StartMode::openFile,
        u"--x.bio"_s);
    row("help", {u"--help"_s}, StartMode::showHelp, {});
    row("version", {u"--version"_s}, StartMode::showVersion, {});
    row("unknown", {u"--apri"_s, u"c.bio"_s}, StartMode::wrongUse,
        u"opzione sconosciuta: --apri"_s);
    row("open from a menu, without a file", {u"--open"_s}, StartMode::plain, {});
    row("unknown, of one dash", {u"--open"_s, u"a.bio"_s, u"-vista"_s}, StartMode::wrongUse,
        u"opzione sconosciuta: -vista"_s);
    row("unknown, with a line end and a command to the terminal", {u"--x\ny\x1b[2J"_s},
        StartMode::wrongUse, u"opzione sconosciuta: --x?y?[2J"_s);
    row("too much, of two lines", {u"--print"_s, u"a\u2028b"_s}, StartMode::wrongUse,
        u"argomento di troppo: a?b"_s);
    row("help with a value", {u"--help=5"_s}, StartMode::wrongUse,
        u"un'opzione ha un valore di troppo: --help=5"_s);
    row("export nothing", {u"--export"_s}, StartMode::wrongUse,
        u"l'opzione --export vuole il nome di un file"_s);
    row("export to nowhere", {u"--export"_s, u"a.bio"_s, u"--output"_s}, StartMode::wrongUse,
        u"l'opzione --output vuole il nome di una cartella o di un file"_s);
    row("export for no date", {u"--export"_s, u"a.bio"_s, u"--date"_s}, StartMode::wrongUse,
        u"l'opzione --date vuole una data"_s);
    row("print without export", {u"--print"_s}, StartMode::wrongUse,
        u"l'opzione --print vale solo con --export"_s);
    row("output without export", {u"--open"_s, u"a.bio"_s, u"--output=x"_s}, StartMode::wrongUse,
        u"l'opzione --output vale solo con --export o --report"_s);
    row("open and export", {u"--open"_s, u"a.bio"_s, u"--export"_s, u"a.bio"_s},
        StartMode::wrongUse, u"le opzioni --open e --export non vanno insieme"_s);
    row("export and report", {u"--report"_s, u"a.bio"_s, u"--export"_s, u"a.bio"_s},
        StartMode::wrongUse, u"le opzioni --export e --report non vanno insieme"_s);
    row("report nothing", {u"--report"_s}, StartMode::wrongUse,
        u"l'opzione --report vuole il nome di un file"_s);
    row("report in no format", {u"--report"_s, u"a.bio"_s, u"--format"_s}, StartMode::wrongUse,
        u"l'opzione --format vuole text, json, csv o ics"_s);
    row("another format", {u"--format"_s, u"CSV"_s, u"--report"_s, u"a.bio"_s}, StartMode::wrongUse,
        u"l'opzione --format vuole text, json, csv o ics: CSV"_s);
    row("format without report", {u"--export"_s, u"a.bio"_s, u"--format=csv"_s},
        StartMode::wrongUse, u"l'opzione --format vale solo con --report"_s);
    row("print with report", {u"--report"_s, u"a.bio"_s, u"--print"_s}, StartMode::wrongUse,
        u"l'opzione --print vale solo con --export"_s);
    row("date by itself", {u"--date"_s, u"oggi"_s}, StartMode::wrongUse,
        u"l'opzione --date vale solo con --export o --report"_s);
    row("empty date", {u"--report"_s, u"a.bio"_s, u"--date="_s}, StartMode::wrongUse,
        u"l'opzione --date vuole una data"_s);
    row("empty output", {u"--report"_s, u"a.bio"_s, u"--output"_s, u" "_s}, StartMode::wrongUse,
        u"l'opzione --output vuole il nome di una cartella o di un file"_s);
    for (const QString& days :
         {u"0"_s, u"-1"_s, u"100001"_s, u"1e3"_s, u"+5"_s, u"٣"_s, u"99999999999999999999"_s}) {
        row(qPrintable(u"days "_s + days),
            {u"--report"_s, u"a.bio"_s, u"--format"_s, u"csv"_s, u"--days"_s, days},
            StartMode::wrongUse, u"l'opzione --days vuole un numero da 1 a 100000: "_s + days);
    }
    row("days of a text", {u"--report"_s, u"a.bio"_s, u"--days"_s, u"3"_s}, StartMode::wrongUse,
        u"l'opzione --days vale solo con --format csv o ics"_s);
    row("too much", {u"--open"_s, u"a.bio"_s, u"b.bio"_s}, StartMode::wrongUse,
        u"argomento di troppo: b.bio"_s);
}

void TestCommandLine::options() {
    QFETCH(QStringList, arguments);
    QFETCH(int, mode);
    QFETCH(QString, text);
    const StartRequest request = parseArguments(arguments);
    QCOMPARE(static_cast<int>(request.mode), mode);
    QCOMPARE(request.text, text);
}

void TestCommandLine::exportsWithoutAWindow() {
    StartRequest request = parseArguments({u"--export"_s, u"a b.bio"_s});
    QVERIFY(request.mode == StartMode::exportFile);
    QCOMPARE(request.batch.file, u"a b.bio"_s);
    QVERIFY(!request.batch.forPrint);
    QCOMPARE(request.batch.outputFolder, QString());
    QCOMPARE(request.batch.date, QString());

    request = parseArguments({u"--date"_s, u"13 Nov 1945"_s, u"--print"_s, u"--export=s.brs"_s,
                              u"--output"_s, u"/x/y"_s});
    QVERIFY(request.mode == StartMode::exportFile);
    QCOMPARE(request.batch.file, u"s.brs"_s);
    QVERIFY(request.batch.forPrint);
    QCOMPARE(request.batch.outputFolder, u"/x/y"_s);
    QCOMPARE(request.batch.date, u"13 Nov 1945"_s);
}

void TestCommandLine::reportsWithoutAWindow() {
    StartRequest request = parseArguments({u"--report"_s, u"a b.bio"_s});
    QVERIFY(request.mode == StartMode::reportFile);
    QCOMPARE(request.report.file, u"a b.bio"_s);
    QVERIFY(request.report.format == ReportFormat::text);
    QVERIFY(!request.report.days);
    QCOMPARE(request.report.date, QString());
    QCOMPARE(request.report.outputFile, QString());

    const std::array formats{
        std::pair{u"text"_s, ReportFormat::text}, std::pair{u"json"_s, ReportFormat::json},
        std::pair{u"csv"_s, ReportFormat::csv}, std::pair{u"ics"_s, ReportFormat::calendar}};
    for (const auto& [name, format] : formats) {
        request = parseArguments({u"--format"_s, name, u"--report"_s, u"a.bio"_s});
        QVERIFY(request.mode == StartMode::reportFile);
        QVERIFY(request.report.format == format);
    }

    request = parseArguments({u"--days"_s, u"100000"_s, u"--output=x.ics"_s, u"--date"_s,
                              u"13 Nov 1945"_s, u"--format=ics"_s, u"--report=s.brs"_s});
    QVERIFY(request.mode == StartMode::reportFile);
    QCOMPARE(request.report.file, u"s.brs"_s);
    QCOMPARE(request.report.days, std::optional<std::int32_t>(100'000));
    QCOMPARE(request.report.outputFile, u"x.ics"_s);
    QCOMPARE(request.report.date, u"13 Nov 1945"_s);
}

void TestCommandLine::textIsJoinedByBlanks() {
    const StartRequest request = parseArguments({u"\"/a"_s, u"b/c.bio\""_s, u"--open"_s});
    QVERIFY(request.mode == StartMode::commandLineText);
    QCOMPARE(request.text, u"\"/a b/c.bio\" --open"_s);
}

void TestCommandLine::firstAndLastCharacterGo_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::newRow("quoted") << u"\"/a b/c.bio\""_s << u"/a b/c.bio"_s;
    QTest::newRow("quoted, blanks around") << u"  \"/a b/c.bio\" "_s << u"/a b/c.bio"_s;
    QTest::newRow("not quoted") << u"/a/c.bio"_s << u"a/c.bi"_s;
    QTest::newRow("blanks inside stay") << u"\" c.bio \""_s << u" c.bio "_s;
    QTest::newRow("two characters") << u"\"\""_s << QString();
    QTest::newRow("one") << u"x"_s << QString();
    QTest::newRow("none") << u"  "_s << QString();
}

void TestCommandLine::firstAndLastCharacterGo() {
    QFETCH(QString, text);
    QFETCH(QString, path);
    QCOMPARE(pathInCommandLineText(text), path);
}

void TestCommandLine::usageNamesEveryOptionAndFile() {
    for (const QString& line : usageText().split(u'\n')) {
        QVERIFY2(line.size() <= 80, qPrintable(line));
    }
    for (const QString& option :
         {u"--open"_s, u"--export"_s, u"--print"_s, u"--output"_s, u"--date"_s, u"--report"_s,
          u"--format"_s, u"--days"_s, u"--help"_s, u"--version"_s, u".bio"_s, u".brs"_s}) {
        QVERIFY(usageText().contains(option));
    }
}

} // namespace quor::test
