#include "storage/TestSystemFile.h"

#include "core/Clock.h"
#include "storage/SystemFile.h"

#include "storage/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

using Members = std::vector<SystemMember>;

const QByteArray& sample() {
    static const QByteArray bytes("3\r\n"
                                  "\"Zoe\"\r\n#1981-12-25#\r\n"
                                  "\"Anna\"\r\n#2000-02-29#\r\n"
                                  "\"Maria\"\r\n#1899-12-29#\r\n"
                                  "#2004-03-15#\r\n3\r\n-10\r\n"
                                  "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n");
    return bytes;
}

const Members& sampleMembers() {
    static const Members members{{u"Zoe"_s, toDateValue(QDate(1981, 12, 25))},
                                 {u"Anna"_s, toDateValue(QDate(2000, 2, 29))},
                                 {u"Maria"_s, -1}};
    return members;
}

/// A program in which nothing has the value that the sample gives it.
Program otherProgram() {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = 200;
    program.state.modified = true;
    program.state.systemMembers = {{u"Altra"_s, 10}, {u"Altro"_s, 20}};
    program.state.systemCount = 2;
    return program;
}

Program programWith(const Members& members) {
    Program program = otherProgram();
    program.state.systemMembers = members;
    program.state.systemCount = static_cast<std::int16_t>(members.size());
    return program;
}

Program readFrom(const QByteArray& bytes) {
    const Files files;
    Program program = otherProgram();
    if (readSystemFile(files.write(bytes), program)) {
        qFatal("the file is refused");
    }
    return program;
}

/// The fields that a .brs file holds, in its order, as text.
QStringList systemFields(const Program& program) {
    QStringList texts{QString::number(program.state.systemCount)};
    for (const SystemMember& member : program.state.systemMembers) {
        texts << member.name << QString::number(member.birthDate);
    }
    return texts + fields(program.biorhythm).sliced(2);
}

} // namespace

void TestSystemFile::oneMemberIsWrittenToTheLetter() {
    const FixedClock clock(QDate(2026, 11, 21));
    Program program;
    resetToStartUp(program);
    program.state.systemMembers = {{u"Niccolò Però"_s, toDateValue(QDate(1981, 12, 25))}};
    program.state.systemCount = 1;
    program.state.modified = true;
    const Files files;
    const QString path = files.path(u"prova.brs"_s);

    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QCOMPARE(Files::read(path),
             QByteArray("1\r\n\"Niccol\xF2 Per\xF2\"\r\n#1981-12-25#\r\n"
                        "#2026-11-21#\r\n2\r\n0\r\n"
                        "16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n"));
    QVERIFY(!program.state.modified);
}

void TestSystemFile::linesOfAFile_data() {
    QTest::addColumn<int>("members");
    QTest::addColumn<int>("lines");
    QTest::newRow("none") << 0 << 11;
    QTest::newRow("one") << 1 << 13;
    QTest::newRow("three") << 3 << 17;
}

void TestSystemFile::linesOfAFile() {
    QFETCH(int, members);
    QFETCH(int, lines);
    Program program = programWith(Members(static_cast<std::size_t>(members)));
    const Files files;
    const QString path = files.path(u"prova.brs"_s);
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QCOMPARE(Files::read(path).count("\r\n"), lines);
}

void TestSystemFile::onlyTheCountedMembersAreSaved() {
    // The list may hold more entries than there are members, as after a system was closed.
    Program program = programWith(sampleMembers());
    program.state.systemCount = 1;
    const Files files;
    const QString path = files.path(u"prova.brs"_s);
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QVERIFY(Files::read(path).startsWith("1\r\n\"Zoe\"\r\n#1981-12-25#\r\n#"));

    // A count that the list cannot fill is not written.
    program.state.systemCount = 100;
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QVERIFY(Files::read(path).startsWith("3\r\n"));
    program.state.systemCount = -1;
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QVERIFY(Files::read(path).startsWith("0\r\n#"));
}

void TestSystemFile::whatIsWrittenIsReadBack() {
    const Files files;
    const QString path = files.write(sample());
    Program program = otherProgram();
    QVERIFY(!readSystemFile(path, program));

    QCOMPARE(program.state.systemCount, std::int16_t{3});
    QCOMPARE(program.state.systemMembers, sampleMembers()); // in the order of the file
    QCOMPARE(toQDate(program.biorhythm.calculationDate), QDate(2004, 3, 15));
    QCOMPARE(program.biorhythm.dayIndexPosition, std::uint8_t{3});
    QCOMPARE(program.biorhythm.graphDaysAdjust, std::int16_t{-10});
    QCOMPARE(program.biorhythm.curveColours, (std::array<Colour, 5>{1, 2, 3, 4, 0}));
    QCOMPARE(program.biorhythm.weeklyColours, (std::array<Colour, 4>{5, 6, 7, 0}));
    QVERIFY(!program.state.modified);
    QCOMPARE(program.state.systemFilePath, path);

    const QString copy = files.path(u"copy.brs"_s);
    QCOMPARE(saveSystemFile(copy, program), std::nullopt);
    QCOMPARE(Files::read(copy), sample());
}

void TestSystemFile::namesWithAccentsCommasAndQuotes() {
    const Members members{{u"D'Amico, Niccolò"_s, 1},
                          {u"Anna \"la Rossa\""_s, 2},
                          {u"Дмитрий"_s, 3},
                          {QString(), 4},
                          {u"  €  "_s, 5}};
    Program program = programWith(members);
    const Files files;
    const QString path = files.path(u"prova.brs"_s);
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QCOMPARE(program.state.systemMembers, members); // only the file says it otherwise

    QVERIFY(!readSystemFile(path, program));
    Members back = members;
    back[1].name = u"Anna 'la Rossa'"_s;
    back[2].name = u"???????"_s;
    QCOMPARE(program.state.systemMembers, back);
}

void TestSystemFile::dateAndOptionsAreReplacedAndNoOtherField() {
    const Files files;
    Program program = otherProgram();
    program.biorhythm.name = u"Persona"_s;
    program.biorhythm.birthDate = 300;
    program.state.filePath = u"persona.bio"_s;
    QVERIFY(!readSystemFile(files.write(sample()), program));
    QCOMPARE(
        fields(program.biorhythm),
        (QStringList{u"Persona"_s, u"300"_s, QString::number(toDateValue(QDate(2004, 3, 15))),
                     u"3"_s, u"-10"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s}));
    QCOMPARE(program.state.filePath, u"persona.bio"_s);
    QVERIFY(!program.state.systemOpen); // opening is the frame's part
}

void TestSystemFile::aCountTooBigTakesTheTailForMembers() {
    // One member more than there are: the date of calculation is no name, the position of the day
    // numbers no date, and the tail begins two lines late.
    const Program program = readFrom("4" + sample().sliced(1));
    Members expected = sampleMembers();
    expected.emplace_back();
    QCOMPARE(program.state.systemCount, std::int16_t{4});
    QCOMPARE(program.state.systemMembers, expected);
    const Biorhythm old = otherProgram().biorhythm;
    QCOMPARE(program.biorhythm.calculationDate, old.calculationDate); // was -10
    QCOMPARE(program.biorhythm.dayIndexPosition, std::uint8_t{1});
    QCOMPARE(program.biorhythm.graphDaysAdjust, std::int16_t{2});
    QCOMPARE(program.biorhythm.curveColours, (std::array<Colour, 5>{3, 4, 5, 6, 0}));
    QCOMPARE(program.biorhythm.weeklyColours[0], Colour{7});
    QCOMPARE(program.biorhythm.weeklyColours[1], old.weeklyColours[1]); // past the end

    // The largest count over a short file: as many members, nearly all of them empty.
    const Program largest = readFrom("32767" + sample().sliced(1));
    QCOMPARE(largest.state.systemCount, std::numeric_limits<std::int16_t>::max());
    QCOMPARE(largest.state.systemMembers.size(), std::size_t{32'767});
    QCOMPARE(largest.state.systemMembers[2], sampleMembers()[2]);
    QCOMPARE(largest.state.systemMembers.back(), SystemMember());
    QCOMPARE(fields(largest.biorhythm), fields(old));
}

void TestSystemFile::aCountTooSmallTakesMembersForTheTail() {
    // Two members fewer than there are: a name is no date, a date no number, and the numbers
    // arrive four lines late.
    const Program program = readFrom("1" + sample().sliced(1));
    QCOMPARE(program.state.systemCount, std::int16_t{1});
    QCOMPARE(program.state.systemMembers, Members{sampleMembers()[0]});
    const Biorhythm old = otherProgram().biorhythm;
    QCOMPARE(program.biorhythm.calculationDate, old.calculationDate);
    QCOMPARE(program.biorhythm.dayIndexPosition, old.dayIndexPosition);
    QCOMPARE(program.biorhythm.graphDaysAdjust, old.graphDaysAdjust);
    QCOMPARE(program.biorhythm.curveColours,
             (std::array<Colour, 5>{old.curveColours[0], old.curveColours[1], 3, -10, 0}));
    QCOMPARE(program.biorhythm.weeklyColours, (std::array<Colour, 4>{1, 2, 3, 0}));
}

void TestSystemFile::noMembersLeaveTheOldListWhereItIs() {
    const Program program = readFrom("0\r\n" + sample().sliced(sample().indexOf("#2004")));
    QCOMPARE(program.state.systemCount, std::int16_t{0});
    QCOMPARE(program.state.systemMembers, otherProgram().state.systemMembers);
    QCOMPARE(findSystemMember(program.state, u"Altra"_s), std::int16_t{-1});
    QCOMPARE(fields(program.biorhythm).sliced(2), fields(readFrom(sample()).biorhythm).sliced(2));
}

void TestSystemFile::withoutACountNothingIsTaken_data() {
    QTest::addColumn<QByteArray>("bytes");
    for (const char* count :
         {"", "tre", "\"3\"", "#2004-03-15#", "32768", "-1", "-32768", "-32769", "3.0"}) {
        QTest::addRow("'%s'", count) << count + sample().sliced(1);
    }
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("empty line") << QByteArray("\r\n");
    QTest::newRow("binary") << binaryBytes(100'000);
    QTest::newRow("zeros") << QByteArray(1000, '\0');
}

void TestSystemFile::withoutACountNothingIsTaken() {
    QFETCH(QByteArray, bytes);
    const Files files;
    Program program = otherProgram();
    QCOMPARE(readSystemFile(files.write(bytes), program),
             std::optional(u"alla riga 1 non c'è un numero di persone da 0 a 32767"_s));
    QCOMPARE(systemFields(program), systemFields(otherProgram()));
    QVERIFY(program.state.systemFilePath.isEmpty() && program.state.modified);
}

void TestSystemFile::truncatedAfterEachLine_data() {
    QTest::addColumn<int>("lines");
    for (int lines = 1; lines <= 17; ++lines) {
        QTest::addRow("%d lines", lines) << lines;
    }
}

void TestSystemFile::truncatedAfterEachLine() {
    QFETCH(int, lines);
    // What is not read: as many empty members as were counted, and the record as it was.
    Program unread = programWith(Members(3));
    const QStringList whole = systemFields(readFrom(sample()));
    const QStringList expected = whole.first(lines) + systemFields(unread).sliced(lines);

    QByteArrayList kept = sample().split('\n').first(lines);
    QCOMPARE(systemFields(readFrom(kept.join('\n'))), expected);

    // And cut in the middle of the next line: that field keeps its value too, unless a number
    // is still a number.
    if (lines < 8) {
        kept << sample().split('\n').at(lines).first(4);
        QCOMPARE(systemFields(readFrom(kept.join('\n'))), expected);
    }
}

void TestSystemFile::damagedLinesKeepTheirFields() {
    for (int damaged = 1; damaged < 17; ++damaged) {
        QByteArrayList lines = sample().split('\n');
        lines[damaged] = "@@@\r";
        QStringList expected = systemFields(readFrom(sample()));
        expected[damaged] = systemFields(programWith(Members(3)))[damaged];
        QCOMPARE(systemFields(readFrom(lines.join('\n'))), expected);
    }
}

void TestSystemFile::filesThatCannotBeOpened() {
    const Files files;
    const QString folder = files.path(u"folder.brs"_s);
    QVERIFY(QDir().mkdir(folder));
    for (const auto& [path, reason] : {std::pair{files.path(u"missing.brs"_s), u"non esiste"_s},
                                       {folder, u"è una cartella"_s}}) {
        Program program = otherProgram();
        QCOMPARE(readSystemFile(path, program), std::optional(reason));
        QCOMPARE(systemFields(program), systemFields(otherProgram()));
        QVERIFY(program.state.systemFilePath.isEmpty() && program.state.modified);
    }
}

void TestSystemFile::binaryLinesAfterACount() {
    const Program program = readFrom("32767\r\n" + binaryBytes(1'000'000));
    QCOMPARE(program.state.systemMembers, Members(32'767));
    QCOMPARE(fields(program.biorhythm), fields(otherProgram().biorhythm));
}

void TestSystemFile::takenOver() {
    const Files files;
    const QString path = files.write(sample());
    Program read;
    QVERIFY(!readSystemFile(path, read));
    Program program = otherProgram();
    program.biorhythm.name = u"Persona"_s;
    takeSystem(read, program);
    QCOMPARE(systemFields(program), systemFields(readFrom(sample())));
    QCOMPARE(program.biorhythm.name, u"Persona"_s);
    QCOMPARE(program.state.systemFilePath, path);
    QVERIFY(!program.state.modified && program.biorhythm.openGraph);
}

void TestSystemFile::hugeFilesAreReadInBoundedTime() {
    const Files files;
    // A hundred megabytes without a line end, as a hole that takes no room on the disk.
    const QString path = files.write("32767\r\n\"Maria Rossi\"\r\n");
    QFile file(path);
    QVERIFY(file.resize(100'000'000));
    Program program = otherProgram();
    QVERIFY(!readSystemFile(path, program));
    Members expected(32'767);
    expected[0].name = u"Maria Rossi"_s;
    QCOMPARE(program.state.systemMembers, expected);

    // Sixteen mebibytes of junk with line ends.
    program = readFrom("32767\r\n" + binaryBytes(16LL * 1024 * 1024));
    QCOMPARE(program.state.systemMembers, Members(32'767));
}

void TestSystemFile::theLargestSystem() {
    Members members;
    for (int i = 0; i < 32'767; ++i) {
        members.push_back({u"Niccolò n. %1"_s.arg(i), static_cast<DateValue>(i * 37 - 657'000)});
    }
    Program program = programWith(members);
    const Files files;
    const QString path = files.path(u"prova.brs"_s);
    QCOMPARE(saveSystemFile(path, program), std::nullopt);
    QCOMPARE(Files::read(path).count('\n'), 2 * 32'767 + 11);

    Program back = otherProgram();
    QVERIFY(!readSystemFile(path, back));
    QCOMPARE(back.state.systemCount, std::numeric_limits<std::int16_t>::max());
    QCOMPARE(back.state.systemMembers, members);
    QCOMPARE(fields(back.biorhythm).sliced(2), fields(program.biorhythm).sliced(2));
}

void TestSystemFile::aFailedSaveKeepsTheOldFile() {
    const Files files;
    Program program = otherProgram();
    QVERIFY(saveSystemFile(files.path(u"no/such/folder.brs"_s), program).has_value());
    QVERIFY(program.state.modified);

    const QString folder = files.path(u"folder.brs"_s);
    QVERIFY(QDir().mkdir(folder));
    QVERIFY(!saveSystemFile(folder, program).value_or(QString()).isEmpty());
    QVERIFY(program.state.modified);

    const QString path = files.write(sample());
    std::optional<QString> failure;
    {
        const FullDisk disk(10);
        failure = saveSystemFile(path, program);
    }
    QVERIFY(failure.has_value());
    QVERIFY(program.state.modified);
    QCOMPARE(Files::read(path), sample());
}

void TestSystemFile::savingKeepsTheFilePath() {
    const Files files;
    Program program = otherProgram();
    program.state.systemFilePath = u"elsewhere.brs"_s;
    QCOMPARE(saveSystemFile(files.path(u"a.brs"_s), program), std::nullopt);
    QCOMPARE(program.state.systemFilePath, u"elsewhere.brs"_s);
}

void TestSystemFile::samplesOpen() {
    const QDir examples(QStringLiteral(QUOR_EXAMPLES));
    const QStringList names = examples.entryList({u"*.brs"_s}, QDir::Files);
    QCOMPARE(names, QStringList{u"La famiglia Rossi.brs"_s});
    const QString path = examples.filePath(names.front());
    Program program = otherProgram();
    QVERIFY(!readSystemFile(path, program));
    QCOMPARE(program.state.systemCount, std::int16_t{12});
    QCOMPARE(program.biorhythm.calculationDate, toDateValue(QDate(2026, 11, 21)));
    for (const SystemMember& member : program.state.systemMembers) {
        const int year = toQDate(member.birthDate).year();
        QVERIFY(!member.name.isEmpty() && year >= 1938 && year <= 2019);
    }
    const Files files;
    const QString copy = files.path(u"copy.brs"_s);
    QCOMPARE(saveSystemFile(copy, program), std::nullopt);
    QCOMPARE(Files::read(copy), Files::read(path));
}

} // namespace quor::test
