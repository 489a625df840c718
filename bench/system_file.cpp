// Reading and saving the largest system file against what nobody could leave out.
//
// Reading: a loop of std::getline over the same file, which takes the lines and does nothing with
// them. Saving: writing the same bytes, made beforehand, in the same safe way. The two of a pair
// are timed in turn, which of them first changes from round to round, and the medians are compared.

#include "Measure.h"
#include "storage/SystemFile.h"
#include "storage/WholeFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace quor;
using quor::bench::compareTimes;
using quor::bench::measure;

namespace {

constexpr std::int16_t memberCount = 32'767;
constexpr std::size_t lineCount = 1 + 2 * std::size_t{memberCount} + 10;

/// Names as they come, some with accents, all different; births over a hundred years.
Program fullSystem() {
    constexpr std::array firstNames{u"Maria", u"Niccolò", u"Giuseppe", u"Anna",
                                    u"Zoë",   u"Luca",    u"Pier'Ugo", u"Bartolomea"};
    constexpr std::array lastNames{u"Rossi", u"D'Amico", u"Bianchi", u"De Santis", u"Però"};
    Program program;
    resetDisplayOptions(program.biorhythm);
    program.biorhythm.calculationDate = 46'347;
    program.state.systemCount = memberCount;
    for (std::size_t i = 0; i < std::size_t{memberCount}; ++i) {
        program.state.systemMembers.push_back(
            {.name = u"%1 %2 %3"_s
                         .arg(QStringView(firstNames.at(i % firstNames.size())),
                              QStringView(lastNames.at(i % lastNames.size())))
                         .arg(i),
             .birthDate = static_cast<double>(7'000 + i * 7919 % 36'525)});
    }
    return program;
}

std::size_t countLines(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::size_t lines = 0;
    while (std::getline(file, line)) {
        ++lines;
    }
    return lines;
}

int fail(const char* reason) {
    std::fprintf(stderr, "bench_system_file: %s\n", reason);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    int rounds = 101;
    if (argc == 3 && std::string_view(argv[1]) == "--rounds") {
        const char* end = argv[2] + std::strlen(argv[2]);
        if (std::from_chars(argv[2], end, rounds).ptr != end || rounds < 1) {
            return fail("--rounds takes a number from 1");
        }
    } else if (argc != 1) {
        return fail("takes nothing but --rounds N");
    }

    const QTemporaryDir folder;
    const QString path = folder.filePath(u"sistema.brs"_s);
    const QString copy = folder.filePath(u"copia.brs"_s);
    const std::string narrowPath = QFile::encodeName(path).toStdString();
    Program full = fullSystem();
    if (saveSystemFile(path, full)) {
        return fail("cannot write a file in the temporary folder");
    }

    // Both see the whole file, or their times mean nothing.
    Program back;
    if (readSystemFile(path, back) || back.state.systemMembers != full.state.systemMembers ||
        countLines(narrowPath) != lineCount) {
        return fail("the file does not read back");
    }
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();

    const auto read = [&] {
        Program program; // taken down again outside the time
        return measure([&] { (void)readSystemFile(path, program); });
    };
    const auto getline = [&] { return measure([&] { (void)countLines(narrowPath); }); };
    const auto save = [&] { return measure([&] { (void)saveSystemFile(copy, full); }); };
    const auto write = [&] { return measure([&] { (void)writeWholeFile(copy, bytes); }); };
    compareTimes("read/getline", rounds, read, getline);
    compareTimes("save/write", rounds, save, write);
    return 0;
}
