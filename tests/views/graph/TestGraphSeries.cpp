#include "views/graph/TestGraphSeries.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "views/graph/GraphSource.h"

#include "support/Hermetic.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>
#include <set>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// The program with a system whose members have these day counts on the calculation date.
Program systemOf(const std::vector<std::int32_t>& dayCounts, QDate calculation = {2004, 3, 15}) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = toDateValue(calculation);
    program.state.systemOpen = true;
    for (const std::int32_t dayCount : dayCounts) {
        program.state.systemMembers.push_back({QString::number(program.state.systemMembers.size()),
                                               program.biorhythm.calculationDate - dayCount});
    }
    program.state.systemCount = static_cast<std::int16_t>(dayCounts.size());
    return program;
}

QString inMillionths(const QString& name, const std::vector<double>& values) {
    QStringList words{name};
    for (const double value : values) {
        words << QString::number(static_cast<qint64>(roundHalfEven(1e6 * value)));
    }
    return words.join(u' ');
}

QStringList describe(const GraphSeries& series) {
    QStringList bars{u"bars"_s};
    for (const Colour bar : series.bars) {
        bars << QString::number(bar);
    }
    return {inMillionths(u"physical"_s, series.physical),
            inMillionths(u"emotional"_s, series.emotional),
            inMillionths(u"intellectual"_s, series.intellectual),
            inMillionths(u"mean"_s, series.mean), bars.join(u' ')};
}

/// The definition, member by member.
template<typename Value>
std::vector<double> direct(const std::vector<std::int32_t>& dayCounts, std::int32_t daysAround,
                           Value value) {
    std::vector<double> means;
    for (std::int32_t offset = -daysAround; offset <= daysAround; ++offset) {
        double sum = 0;
        for (const std::int32_t dayCount : dayCounts) {
            sum += value(dayCount + offset);
        }
        means.push_back(sum / static_cast<double>(dayCounts.size()));
    }
    return means;
}

/// Where two curves first differ in any bit, or -1.
int firstDifference(const std::vector<double>& left, const std::vector<double>& right) {
    const auto [l, r] = std::ranges::mismatch(left, right, [](double a, double b) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    });
    return l == left.end() && r == right.end() ? -1 : static_cast<int>(l - left.begin());
}

} // namespace

void TestGraphSeries::knownSystems() {
    QFile file(QStringLiteral(QUOR_TEST_DATA "/system_graph_reference.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QTextStream stream(&file);
    int systems = 0;
    while (!stream.atEnd()) {
        const QString head = stream.readLine();
        const QStringList words = head.split(u' ');
        QCOMPARE(words[0], u"system"_s);
        std::vector<std::int32_t> dayCounts;
        for (const QString& word : words.sliced(2)) {
            dayCounts.push_back(word.toInt());
        }
        const QStringList lines = describe(systemSeries(SystemMean(dayCounts), words[1].toInt()));
        for (const QString& line : lines) {
            const QString expected = stream.readLine();
            if (line != expected) {
                QFAIL(qPrintable(u"%1\n is %2\n not %3"_s.arg(head, line, expected)));
            }
        }
        ++systems;
    }
    QCOMPARE(systems, 300);
}

void TestGraphSeries::aSystemsValuesToTheLastBit_data() {
    QTest::addColumn<std::vector<std::int32_t>>("dayCounts");
    QTest::addColumn<int>("daysAround");
    using DayCounts = std::vector<std::int32_t>;
    QTest::newRow("one member, one day") << DayCounts{8116} << 1;
    QTest::newRow("a family") << DayCounts{8116, 20411, 19004, 61} << 20;
    QTest::newRow("births within the span") << DayCounts{300, -3, 0, 7, -364, 12000} << 365;
    QTest::newRow("the longest span") << DayCounts{30000, -1, -32787, 11000} << 32787;
}

void TestGraphSeries::aSystemsValuesToTheLastBit() {
    QFETCH(const std::vector<std::int32_t>, dayCounts);
    QFETCH(const int, daysAround);
    const GraphSeries series = SystemGraph(systemOf(dayCounts)).series(daysAround);
    QCOMPARE(series.mean.size(), static_cast<std::size_t>(2 * daysAround + 1));
    QCOMPARE(series.bars.size(), static_cast<std::size_t>(2 * daysAround));
    const auto cycle = [&](Period period) {
        return direct(dayCounts, daysAround,
                      [period](std::int32_t day) { return cycleValue(day, period); });
    };
    QCOMPARE(firstDifference(series.physical, cycle(Period::physical)), -1);
    QCOMPARE(firstDifference(series.emotional, cycle(Period::emotional)), -1);
    QCOMPARE(firstDifference(series.intellectual, cycle(Period::intellectual)), -1);
    QCOMPARE(firstDifference(series.mean, direct(dayCounts, daysAround,
                                                 [](std::int32_t day) { return cycleMean(day); })),
             -1);
}

/// Each channel passes through every value from 115 to 140, where one person's has only three.
void TestGraphSeries::barsOfASystemVaryContinuously() {
    const std::vector<std::int32_t> dayCounts{8116, 8117};
    const auto channels = [](const GraphSeries& series, int shift) {
        std::set<int> found;
        for (const Colour bar : series.bars) {
            found.insert((bar >> shift) & 0xFF);
        }
        return found;
    };
    const GraphSeries system = systemSeries(SystemMean(dayCounts), 365);
    const GraphSeries person = personSeries(8116 - 365, 365);
    for (const int shift : {0, 8, 16}) {
        QCOMPARE(channels(person, shift), (std::set<int>{115, 128, 140}));
        const std::set<int> found = channels(system, shift);
        QCOMPARE(*found.begin(), 115);
        QCOMPARE(*found.rbegin(), 140);
        QVERIFY(found.size() > 10);
    }
}

void TestGraphSeries::twoMembersHalfAPeriodApart() {
    const GraphSeries series = systemSeries(SystemMean({8116, 8116 - 14}), 60);
    for (const double value : series.emotional) {
        QVERIFY(std::abs(value) < 1e-13);
    }
    QVERIFY(*std::ranges::max_element(series.physical) > 0.1);
    QVERIFY(*std::ranges::max_element(series.intellectual) > 0.1);
}

void TestGraphSeries::aSystemIsAsItWasWhenTheGraphWasMade() {
    Program program = systemOf({8116, 20411});
    const SystemGraph graph(program);
    const GraphSeries before = graph.series(30);
    program.state.systemMembers[0].birthDate += 5;
    program.biorhythm.calculationDate += 3;
    program.state.systemCount = 1;
    QCOMPARE(describe(graph.series(30)), describe(before));
    program.state.systemMembers.clear();
    program.state.systemCount = 0;
    program.state.systemOpen = false;
    QCOMPARE(describe(graph.series(30)), describe(before));
}

void TestGraphSeries::thePopupSaysWhatIsDrawn_data() {
    QTest::addColumn<bool>("system");
    QTest::newRow("person") << false;
    QTest::newRow("system") << true;
}

void TestGraphSeries::thePopupSaysWhatIsDrawn() {
    QFETCH(const bool, system);
    Program program = systemOf({8116, -2, 20411});
    program.biorhythm.daysAtGraphStart = 8096;
    std::unique_ptr<GraphSource> graph;
    if (system) {
        graph = std::make_unique<SystemGraph>(program);
    } else {
        graph = std::make_unique<PersonGraph>(program.biorhythm);
    }
    const GraphSeries series = graph->series(20);
    for (std::int32_t day = 0; day <= 40; ++day) {
        const DayValues values = graph->valuesOn(day, 20);
        const auto at = [day](const std::vector<double>& curve) {
            return curve[static_cast<std::size_t>(day)];
        };
        // A person's curve runs on from its first angle and so may differ in the last digits.
        QVERIFY(std::abs(values.physical - at(series.physical)) < 1e-13);
        QVERIFY(std::abs(values.emotional - at(series.emotional)) < 1e-13);
        QVERIFY(std::abs(values.intellectual - at(series.intellectual)) < 1e-13);
        QVERIFY(std::abs(values.mean - at(series.mean)) < 1e-13);
    }
}

/// A wider span still begins with the day count of the first day of the first span.
void TestGraphSeries::aPersonsFirstDayStays() {
    Biorhythm biorhythm;
    biorhythm.daysAtGraphStart = 8096;
    biorhythm.graphDaysAdjust = -10;
    const PersonGraph graph(biorhythm);
    QCOMPARE(graph.series(10).physical[0], graph.series(30).physical[0]);
    QCOMPARE(graph.valuesOn(4, 30).physical, cycleValue(8096 + 10 + 4, Period::physical));
}

} // namespace quor::test
