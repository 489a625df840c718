// The report's table of days and its compatibility matrix against the least that could do the same.
//
// The table: a line for each of 100,000 days of a person, from the day counts to the bytes in a
// file, against `fputs` of the same lines, formatted beforehand, into a file. The two files must be
// equal. The matrix: the compatibility of every two of 2,000 members, each looked at once, and
// after that in order, against a bare loop that takes the three percentages of each pair from three
// small tables and adds them up. The pairs must come to the same sum. Rounds are taken in turn, and
// the medians of processor time are compared.

#include "report/Report.h"
#include "Measure.h"
#include "core/Cycles.h"
#include "report/CompatibilityMatrix.h"
#include "report/ReportCsv.h"
#include "report/ReportStream.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <span>
#include <vector>

using namespace quor;
using namespace Qt::StringLiterals;

namespace {

std::vector<SystemMember> spreadMembers(std::size_t count) {
    std::mt19937 random(20260101); // NOLINT: the same system in every run
    std::uniform_int_distribution<int> birth(10'000, 40'000);
    std::vector<SystemMember> members(count);
    std::ranges::generate(members, [&] {
        return SystemMember{.name = {}, .birthDate = static_cast<DateValue>(birth(random))};
    });
    return members;
}

/// Times both in turn and prints how they stand to each other.
template<typename Quor, typename Bare>
void compare(const char* name, int rounds, const Quor& quor, const Bare& bare) {
    bench::compareTimes(
        name, rounds, [&] { return bench::measure(quor); }, [&] { return bench::measure(bare); });
}

void writeTable(const ReportSubject& subject, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        std::abort();
    }
    ReportStream stream(file);
    writeCsv(subject, maximumReportDays, stream);
    stream.flush();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool benchTable(int rounds) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"giorni.csv"_s);
    const QString copy = folder.filePath(u"copia.csv"_s);
    const ReportSubject person{.isSystem = false,
                               .name = u"Giulia Ferraro"_s,
                               .firstDay = 46'347,
                               .members = {{.name = u"Giulia Ferraro"_s, .birthDate = 33'062}}};
    writeTable(person, path);
    std::vector<QByteArray> lines;
    for (const QByteArray& line : bytesOf(path).split('\n')) {
        lines.push_back(line + '\n');
    }
    lines.pop_back(); // what is after the last line end
    const QByteArray copyName = QFile::encodeName(copy);
    const auto print = [&] {
        std::FILE* const file = std::fopen(copyName.constData(), "wb");
        for (const QByteArray& line : lines) {
            std::fputs(line.constData(), file);
        }
        std::fclose(file);
    };
    print();
    if (lines.size() != maximumReportDays + 1 || bytesOf(copy) != bytesOf(path)) {
        std::fprintf(stderr, "bench_report: not the same table\n");
        return false;
    }
    compare(
        "table/print", rounds, [&] { writeTable(person, path); }, print);
    return true;
}

/// The percentages of a period by the remainder of the days between two births.
std::vector<double> percentages(Period period) {
    std::vector<double> table;
    for (std::int32_t remainder = 0; remainder < days(period); ++remainder) {
        table.push_back(std::abs(100.0 - 200.0 * remainder / days(period)));
    }
    return table;
}

bool benchMatrix(int rounds, std::size_t count) {
    const std::vector<SystemMember> members = spreadMembers(count);
    std::vector<std::int32_t> births;
    for (const SystemMember& member : members) {
        births.push_back(dayNumber(member.birthDate));
    }
    const std::array tables{percentages(Period::physical), percentages(Period::emotional),
                            percentages(Period::intellectual)};
    volatile double bareSum = 0; // or the bare loop would not be run at all
    const auto bare = [&] {
        const double* const physical = tables[0].data();
        const double* const emotional = tables[1].data();
        const double* const intellectual = tables[2].data();
        double sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t j = i + 1; j < count; ++j) {
                const auto days = static_cast<std::uint32_t>(std::abs(births[i] - births[j]));
                sum += physical[days % 23] + emotional[days % 28] + intellectual[days % 33];
            }
        }
        bareSum = sum;
    };
    volatile double matrixSum = 0;
    const auto add = [](double& sum, const std::optional<Compatibility>& value) {
        sum += value->physical + value->emotional + value->intellectual;
    };
    const auto matrix = [&] {
        const CompatibilityMatrix all(members);
        double sum = 0;
        for (std::uint16_t i = 0; i < count; ++i) {
            for (auto j = static_cast<std::uint16_t>(i + 1); j < count; ++j) {
                add(sum, all.at({.first = i, .second = j}));
            }
        }
        matrixSum = sum;
    };
    volatile double orderedSum = 0;
    volatile std::size_t kept = 0;
    const auto ordered = [&] {
        std::size_t seen = 0;
        const CompatibilityMatrix all(members);
        double sum = 0;
        all.visitInOrder([&](const auto& value, std::span<const CompatibilityMatrix::Pair> pairs) {
            for (const CompatibilityMatrix::Pair pair : pairs) {
                seen ^= pair.first + std::size_t{pair.second};
                add(sum, value);
            }
            return true;
        });
        orderedSum = sum;
        kept = seen;
    };
    bare();
    matrix();
    ordered();
    if (std::abs(bareSum - matrixSum) > 1e-6 * bareSum ||
        std::abs(bareSum - orderedSum) > 1e-6 * bareSum) {
        std::fprintf(stderr, "bench_report: not the same compatibilities\n");
        return false;
    }
    compare("matrix/bare", rounds, matrix, bare);
    compare("ordered/bare", rounds, ordered, bare);
    return true;
}

} // namespace

/// bench_report [ROUNDS]
int main(int argc, char** argv) {
    const int rounds = argc == 2 ? std::atoi(argv[1]) : 31;
    if (argc > 2 || rounds < 1) {
        std::fprintf(stderr, "usage: bench_report [ROUNDS]\n");
        return 2;
    }
    return benchTable(rounds) && benchMatrix(rounds, CompatibilityMatrix::maximumMembers) ? 0 : 1;
}
