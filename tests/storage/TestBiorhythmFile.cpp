#include "storage/TestBiorhythmFile.h"

#include "core/Clock.h"
#include "storage/BiorhythmFile.h"

#include "storage/Files.h"
#include "support/Hermetic.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QByteArray& sample() {
    static const QByteArray bytes("\"Maria Rossi\"\r\n#1981-12-25#\r\n#2004-03-15#\r\n3\r\n-10\r\n"
                                  "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n");
    return bytes;
}

/// A record in which no field has the value that the sample gives it.
Program otherProgram() {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Altro"_s;
    program.biorhythm.birthDate = 100;
    program.biorhythm.calculationDate = 200;
    program.state.modified = true;
    return program;
}

} // namespace

void TestBiorhythmFile::defaultsAreWrittenToTheLetter() {
    const FixedClock clock(QDate(2004, 3, 15));
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Niccolò Però"_s;
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.state.modified = true;
    const Files files;
    const QString path = files.path(u"prova.bio"_s);

    QCOMPARE(saveBiorhythmFile(path, program), std::nullopt);
    QCOMPARE(Files::read(path),
             QByteArray("\"Niccol\xF2 Per\xF2\"\r\n#1981-12-25#\r\n#2004-03-15#\r\n2\r\n0\r\n"
                        "16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n"));
    QVERIFY(!program.state.modified);

    Program read = otherProgram();
    QVERIFY(!readBiorhythmFile(path, read));
    QCOMPARE(fields(read.biorhythm), fields(program.biorhythm));
}

void TestBiorhythmFile::whatIsWrittenIsReadBack() {
    const Files files;
    const QString path = files.write(sample());
    Program program = otherProgram();
    QVERIFY(!readBiorhythmFile(path, program));

    const Biorhythm& biorhythm = program.biorhythm;
    QCOMPARE(biorhythm.name, u"Maria Rossi"_s);
    QCOMPARE(toQDate(biorhythm.birthDate), QDate(1981, 12, 25));
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(2004, 3, 15));
    QCOMPARE(biorhythm.dayIndexPosition, std::uint8_t{3});
    QCOMPARE(biorhythm.graphDaysAdjust, std::int16_t{-10});
    QCOMPARE(biorhythm.curveColours, (std::array<Colour, 5>{1, 2, 3, 4, 0}));
    QCOMPARE(biorhythm.weeklyColours, (std::array<Colour, 4>{5, 6, 7, 0}));
    QVERIFY(!program.state.modified);
    QCOMPARE(program.state.filePath, path);

    const QString copy = files.path(u"copy.bio"_s);
    QCOMPARE(saveBiorhythmFile(copy, program), std::nullopt);
    QCOMPARE(Files::read(copy), sample());
}

void TestBiorhythmFile::namesWithCommasAndQuotes() {
    const Files files;
    const QString path = files.path(u"name.bio"_s);
    for (const auto& [name, back] : {std::pair{u"Rossi, Maria"_s, u"Rossi, Maria"_s},
                                     {u"Anna \"la Rossa\""_s, u"Anna 'la Rossa'"_s},
                                     {u"Дмитрий"_s, u"???????"_s}}) {
        Program program = otherProgram();
        program.biorhythm.name = name;
        QCOMPARE(saveBiorhythmFile(path, program), std::nullopt);
        QCOMPARE(program.biorhythm.name, name); // only the file says it otherwise
        QVERIFY(!readBiorhythmFile(path, program));
        QCOMPARE(program.biorhythm.name, back);
    }
    // A file of another program may hold a quote inside the name: it ends the name.
    Program program = otherProgram();
    QVERIFY(!readBiorhythmFile(files.write("\"Anna \"la Rossa\"\"\r\n#1981-12-25#\r\n"), program));
    QCOMPARE(program.biorhythm.name, u"Anna "_s);
    QCOMPARE(toQDate(program.biorhythm.birthDate), QDate(1981, 12, 25));
}

void TestBiorhythmFile::truncatedAfterEachLine_data() {
    QTest::addColumn<int>("lines");
    for (int lines = 0; lines <= 12; ++lines) {
        QTest::addRow("%d lines", lines) << lines;
    }
}

void TestBiorhythmFile::truncatedAfterEachLine() {
    QFETCH(int, lines);
    const Files files;
    Program complete = otherProgram();
    QVERIFY(!readBiorhythmFile(files.write(sample()), complete));

    QByteArrayList kept = sample().split('\n').first(lines);
    // Without a person it is no biorhythm.
    const int taken = lines < 2 ? 0 : lines;
    const QStringList expected =
        fields(complete.biorhythm).first(taken) + fields(otherProgram().biorhythm).sliced(taken);
    Program program = otherProgram();
    QCOMPARE(readBiorhythmFile(files.write(kept.join('\n')), program).has_value(), taken == 0);
    QCOMPARE(fields(program.biorhythm), expected);

    // And cut in the middle of the next line: that field keeps its value too, unless a number
    // is still a number.
    if (lines < 3) {
        kept << sample().split('\n').at(lines).first(5);
        program = otherProgram();
        QCOMPARE(readBiorhythmFile(files.write(kept.join('\n')), program).has_value(), taken == 0);
        QCOMPARE(fields(program.biorhythm), expected);
    }
}

void TestBiorhythmFile::damagedLinesKeepTheirFields() {
    const Files files;
    for (int damaged = 2; damaged < 12; ++damaged) {
        QByteArrayList lines = sample().split('\n');
        lines[damaged] = "@@@\r";
        Program complete = otherProgram();
        QVERIFY(!readBiorhythmFile(files.write(sample()), complete));
        Program program = otherProgram();
        QVERIFY(!readBiorhythmFile(files.write(lines.join('\n')), program));
        QStringList expected = fields(complete.biorhythm);
        expected[damaged] = fields(otherProgram().biorhythm)[damaged];
        QCOMPARE(fields(program.biorhythm), expected);
    }
}

void TestBiorhythmFile::withoutAPersonNothingIsTaken_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QString name = u"il nome, alla riga 1, manca o è danneggiato"_s;
    const QString birth = u"la data di nascita, alla riga 2, manca o è danneggiata"_s;
    QTest::newRow("empty") << QByteArray() << name;
    QTest::newRow("empty line") << QByteArray("\r\n") << name;
    QTest::newRow("binary") << binaryBytes(100'000) << name;
    QTest::newRow("zeros") << QByteArray(1000, '\0') << name;
    QTest::newRow("name without quotes") << "Maria\r\n" + sample().split('\n').at(1) << name;
    QTest::newRow("birth without signs") << QByteArray("\"Maria\"\r\n1981-12-25\r\n") << birth;
    QTest::newRow("no such day") << QByteArray("\"Maria\"\r\n#1981-02-30#\r\n") << birth;
}

void TestBiorhythmFile::withoutAPersonNothingIsTaken() {
    QFETCH(QByteArray, bytes);
    const Files files;
    Program program = otherProgram();
    QTEST(readBiorhythmFile(files.write(bytes), program).value_or(QString()), "reason");
    QCOMPARE(fields(program.biorhythm), fields(otherProgram().biorhythm));
    QVERIFY(program.state.filePath.isEmpty() && program.state.modified);
}

void TestBiorhythmFile::outOfRangeNumbersKeepTheirFields() {
    const Files files;
    Program program = otherProgram();
    QVERIFY(
        !readBiorhythmFile(files.write("\"M\"\n#1981-12-25#\n#2004-03-15#\n256\n32768\n2147483648\n"
                                       "-2147483648\n1\n-1\n0\n0\n0\n"),
                           program));
    QCOMPARE(program.biorhythm.dayIndexPosition, std::uint8_t{2});
    QCOMPARE(program.biorhythm.graphDaysAdjust, std::int16_t{0});
    QCOMPARE(program.biorhythm.curveColours,
             (std::array<Colour, 5>{0xFF0000, std::numeric_limits<Colour>::min(), 1, -1, 0}));

    QVERIFY(!readBiorhythmFile(files.write("\"M\"\n#1981-12-25#\n#2004-03-15#\n255\n-32768\n"),
                               program));
    QCOMPARE(program.biorhythm.dayIndexPosition, std::uint8_t{255});
    QCOMPARE(program.biorhythm.graphDaysAdjust, std::int16_t{-32768});
}

void TestBiorhythmFile::takenOver() {
    const Files files;
    Program read;
    const QString path = files.write(sample());
    QVERIFY(!readBiorhythmFile(path, read));
    for (const bool systemOpen : {false, true}) {
        Program program = otherProgram();
        program.state.systemOpen = systemOpen;
        takeBiorhythm(read, program);
        // A system takes the person only.
        const QStringList all = fields(read.biorhythm);
        QCOMPARE(fields(program.biorhythm),
                 systemOpen ? all.first(2) + fields(otherProgram().biorhythm).sliced(2) : all);
        QCOMPARE(program.state.filePath, path);
        QVERIFY(!program.state.modified);
        QVERIFY(program.biorhythm.openGraph); // what no file holds stays
    }
}

void TestBiorhythmFile::filesThatCannotBeOpened() {
    const Files files;
    const QString missing = files.path(u"missing.bio"_s);
    const QString folder = files.path(u"folder.bio"_s);
    QVERIFY(QDir().mkdir(folder));
    const QString pipe = files.path(u"pipe.bio"_s);
    QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    for (const auto& [path, reason] : {std::pair{missing, u"non esiste"_s},
                                       {folder, u"è una cartella"_s},
                                       {pipe, u"non è un file di dati"_s}}) {
        Program program = otherProgram();
        QCOMPARE(readBiorhythmFile(path, program), std::optional(reason));
        QCOMPARE(fields(program.biorhythm), fields(otherProgram().biorhythm));
        QVERIFY(program.state.filePath.isEmpty() && program.state.modified);
    }
}

void TestBiorhythmFile::aHugeFileIsReadInBoundedTime() {
    const Files files;
    // A hundred megabytes without a line end, as a hole that takes no room on the disk.
    const QString path = files.write("\"Maria Rossi\"\r\n#1981-12-25#\r\n");
    QFile file(path);
    QVERIFY(file.resize(100'000'000));
    Program program = otherProgram();
    QVERIFY(!readBiorhythmFile(path, program));
    QCOMPARE(program.biorhythm.name, u"Maria Rossi"_s);
    QCOMPARE(fields(program.biorhythm).sliced(2), fields(otherProgram().biorhythm).sliced(2));
}

void TestBiorhythmFile::aFailedSaveKeepsTheOldFile() {
    const Files files;
    Program program = otherProgram();
    QVERIFY(saveBiorhythmFile(files.path(u"no/such/folder.bio"_s), program).has_value());
    QVERIFY(program.state.modified);

    const QString folder = files.path(u"folder.bio"_s);
    QVERIFY(QDir().mkdir(folder));
    QVERIFY(!saveBiorhythmFile(folder, program).value_or(QString()).isEmpty());
    QVERIFY(program.state.modified);

    const QString path = files.write(sample());
    std::optional<QString> failure;
    {
        const FullDisk disk(10);
        failure = saveBiorhythmFile(path, program);
    }
    QVERIFY(failure.has_value());
    QVERIFY(program.state.modified);
    QCOMPARE(Files::read(path), sample());
}

void TestBiorhythmFile::savingKeepsTheFilePath() {
    const Files files;
    Program program = otherProgram();
    program.state.filePath = u"elsewhere.bio"_s;
    QCOMPARE(saveBiorhythmFile(files.path(u"a.bio"_s), program), std::nullopt);
    QCOMPARE(program.state.filePath, u"elsewhere.bio"_s);
}

void TestBiorhythmFile::samplesOpen() {
    const QDir examples(QStringLiteral(QUOR_EXAMPLES));
    const QStringList names = examples.entryList({u"*.bio"_s}, QDir::Files);
    QVERIFY(names.size() >= 3);
    for (const QString& name : names) {
        Program program = otherProgram();
        const QString path = examples.filePath(name);
        QVERIFY(!readBiorhythmFile(path, program));
        QCOMPARE(program.biorhythm.name, QFileInfo(name).completeBaseName());
        const Files files;
        const QString copy = files.path(name);
        QCOMPARE(saveBiorhythmFile(copy, program), std::nullopt);
        QCOMPARE(Files::read(copy), Files::read(path));
    }
}

} // namespace quor::test
