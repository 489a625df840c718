#include "report/TestReport.h"

#include "core/Clock.h"
#include "core/Cycles.h"
#include "report/CalendarText.h"
#include "report/DaySeries.h"
#include "report/Report.h"
#include "report/ReportData.h"
#include "report/ReportStream.h"
#include "storage/BiorhythmFile.h"
#include "storage/SystemFile.h"

#include <QBuffer>
#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

DateValue dateOf(int year, int month, int day) {
    return toDateValue(QDate(year, month, day));
}

Program family() {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = dateOf(2026, 11, 21);
    program.state.systemOpen = true;
    program.state.systemFilePath = u"/a/La famiglia.brs"_s;
    for (int i = 0; i < 40; ++i) {
        program.state.systemMembers.push_back(
            {.name = u"P%1"_s.arg(i), .birthDate = dateOf(1930 + 3 * i, 1 + i % 12, 1 + i % 28)});
    }
    program.state.systemCount = 40;
    return program;
}

/// A folder, and what a report said there.
class Folder {
  public:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString person() const {
        Program program;
        resetToStartUp(program);
        program.biorhythm.name = u"Anna"_s;
        program.biorhythm.birthDate = dateOf(1990, 7, 8);
        program.biorhythm.calculationDate = dateOf(2026, 11, 21);
        const QString file = path(u"anna.bio"_s);
        if (saveBiorhythmFile(file, program)) {
            qFatal("cannot write the test's own file");
        }
        return file;
    }
    int report(const ReportRequest& request) {
        errors.clear();
        m_buffer.setData({});
        m_buffer.open(QIODevice::WriteOnly);
        QTextStream stream(&errors);
        const int status = writeReport(request, m_buffer, stream);
        m_buffer.close();
        return status;
    }
    [[nodiscard]] const QByteArray& output() const { return m_buffer.data(); }

    QString errors;

  private:
    QTemporaryDir m_folder;
    QBuffer m_buffer;
};

} // namespace

void TestReport::numbersAreTheWindows() {
    const DateValue birth = dateOf(1990, 7, 8);
    for (int later = -3000; later < 3000; later += 7) {
        const std::int32_t day = dayNumber(birth) + later;
        const ReportedPerson person = reportedPerson({.name = u"A"_s, .birthDate = birth}, day);
        QCOMPARE(person.dayCount, later);
        QVERIFY(person.state.shown == dayState(later));
        QVERIFY(person.state.forecast == personForecast(later));
        for (std::size_t i = 0; i < stateItems.size(); ++i) {
            QVERIFY(person.state.today.at(i) * 10 == person.state.shown.today.at(i));
            QVERIFY(person.state.yesterday.at(i) * 10 == person.state.shown.yesterday.at(i));
        }
        QVERIFY(person.state.today[3] == cycleMean(later));
    }
}

void TestReport::systemNumbersAreTheWindows() {
    const Program program = family();
    const ReportSubject system = reportSubject(program);
    QCOMPARE(system.name, u"La famiglia"_s);
    QVERIFY(system.members == program.state.systemMembers);
    const auto counts = memberDayCounts(program.state, program.biorhythm.calculationDate);
    QVERIFY(system.dayCounts() == counts);
    const ReportedState mean = reportedMean(system);
    QVERIFY(mean.shown == systemDayState(counts));
    QVERIFY(mean.forecast == systemForecast(SystemMean(counts)));
    for (std::size_t i = 0; i < stateItems.size(); ++i) {
        // Two ways to add up: once of values ten times as large.
        QVERIFY(std::abs(mean.today.at(i) * 10 - mean.shown.today.at(i)) < 1e-13);
        QVERIFY(std::abs(mean.yesterday.at(i) * 10 - mean.shown.yesterday.at(i)) < 1e-13);
    }
}

void TestReport::seriesAreTheModels() {
    DaySeries person({-1000});
    for (const std::int32_t first : {-1, 0, 500, 2000}) {
        const DaySeries::Block& block = person.values(first, DaySeries::blockLength);
        for (std::size_t i = 0; i < DaySeries::blockLength; ++i) {
            const std::int32_t days = first - 1000 + static_cast<std::int32_t>(i);
            QVERIFY(block[0].at(i) == cycleValue(days, Period::physical));
            QVERIFY(block[1].at(i) == cycleValue(days, Period::emotional));
            QVERIFY(block[2].at(i) == cycleValue(days, Period::intellectual));
            QVERIFY(block[3].at(i) == cycleMean(days));
        }
    }
    const auto counts = reportSubject(family()).dayCounts();
    DaySeries system(counts);
    const SystemMean mean(counts);
    const DaySeries::Block& block = system.values(10, 100);
    std::array<double, 100> expected{};
    mean.cycle(Period::emotional, 10, expected);
    QVERIFY(std::equal(expected.begin(), expected.end(), block[1].begin()));
    mean.mean(10, expected);
    QVERIFY(std::equal(expected.begin(), expected.end(), block[3].begin()));
}

void TestReport::statusAndOneLine() {
    const FixedClock clock(QDate(2026, 11, 21));
    Folder folder;
    const QString file = folder.person();
    const auto fails = [&](const ReportRequest& request, int status, const QString& text) {
        QCOMPARE(folder.report(request), status);
        QCOMPARE(folder.errors, u"quor: "_s + text + u'\n');
        QVERIFY(folder.output().isEmpty());
    };
    const auto csv = ReportFormat::csv;
    fails({.file = u"manca.bio"_s, .date = {}, .days = {}, .outputFile = {}}, 1,
          u"il file non esiste: manca.bio"_s);
    fails({.file = file, .date = u"ieri"_s, .days = {}, .outputFile = {}}, 2,
          u"la data non è valida: ieri"_s);
    fails({.file = file, .format = csv, .date = u"9999-12-31"_s, .days = 2, .outputFile = {}}, 2,
          u"i giorni vanno oltre l'anno 9999: da questa data al massimo 1"_s);
    fails({.file = file, .date = {}, .days = {}, .outputFile = file}, 2,
          u"il rapporto andrebbe sul file da leggere: "_s + file);

    QCOMPARE(folder.report({.file = file, .format = csv, .date = {}, .days = 3, .outputFile = {}}),
             0);
    QCOMPARE(folder.errors, QString());
    QCOMPARE(folder.output().count("\r\n"), 4);
    QCOMPARE(folder.report({.file = file, .format = csv, .date = {}, .days = {}, .outputFile = {}}),
             0);
    QCOMPARE(folder.output().count("\r\n"), 366);
    QCOMPARE(folder.report(
                 {.file = file, .format = csv, .date = u"oggi"_s, .days = 1, .outputFile = {}}),
             0);
    QVERIFY(folder.output().contains("\r\n2026-11-21,13285,-0.6310879443"));
}

/// None lies beside this program.
void TestReport::calendarsTakeTheirModule() {
    Folder folder;
    const QString file = folder.path(u"anna.ics"_s);
    const ReportRequest request{.file = folder.person(),
                                .format = ReportFormat::calendar,
                                .date = {},
                                .days = {},
                                .outputFile = file};
    QCOMPARE(folder.report(request), 1);
    QVERIFY2(folder.errors.startsWith(
                 u"quor: La parte del programma che scrive i calendari non si può caricare"_s) &&
                 folder.errors.contains(u"quor-calendar.so"_s),
             qPrintable(folder.errors));
    QVERIFY(!QFileInfo::exists(file));
    useCalendarText(quorCalendar());
    QCOMPARE(folder.report(request), 0);
    QVERIFY(QFileInfo(file).size() > 0);
    useCalendarText(nullptr);
}

void TestReport::outputFiles() {
    Folder folder;
    const QString file = folder.person();
    const QString output = folder.path(u"rapporto.json"_s);
    const ReportRequest request{
        .file = file, .format = ReportFormat::json, .date = {}, .days = {}, .outputFile = output};
    QCOMPARE(folder.report(request), 0);
    QVERIFY(folder.output().isEmpty());
    QFile written(output);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QByteArray bytes = written.readAll();
    QVERIFY(bytes.startsWith("{\n  \"formato\": \"quor\",\n  \"versione\": 1,\n"));
    QVERIFY(bytes.endsWith("}\n"));

    // A folder is nothing to write to, and stays.
    QVERIFY(QDir().mkpath(folder.path(u"dir"_s)));
    ReportRequest other = request;
    other.outputFile = folder.path(u"dir"_s);
    QCOMPARE(folder.report(other), 1);
    QVERIFY(QFileInfo(other.outputFile).isDir());
    QCOMPARE(folder.errors.count(u'\n'), 1);
    other.outputFile = folder.path(u"no/dir"_s);
    QCOMPARE(folder.report(other), 1);
    other.outputFile = u"/dev/full"_s;
    QCOMPARE(folder.report(other), 1);
    QVERIFY(!QFileInfo(other.outputFile).isFile());
}

} // namespace quor::test
