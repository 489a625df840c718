#include "export/TestExportNames.h"

#include "export/ExportNames.h"

#include <QCryptographicHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Program program(const QString& name, QDate calculation = QDate(2004, 3, 15)) {
    Program result;
    resetToStartUp(result);
    result.biorhythm.name = name;
    result.biorhythm.calculationDate = toDateValue(calculation);
    return result;
}

/// An open system whose first member is current.
Program system(const QString& path, const QStringList& names) {
    Program result = program(names.constFirst());
    result.state.systemOpen = true;
    result.state.systemFilePath = path;
    for (const QString& name : names) {
        result.state.systemMembers.push_back(
            {.name = name, .birthDate = 100.0 * (result.state.systemCount++)});
    }
    result.biorhythm.birthDate = result.state.systemMembers.front().birthDate;
    return result;
}

/// What stands before the date in the names of a run's files.
QStringList labels(const QStringList& names) {
    QStringList result;
    for (const QString& prefix :
         exportPrefixes(system(u"/x/Casa.brs"_s, names), PageVariant::print)) {
        result << prefix.chopped(u"_15-03-2004_stampa_"_s.size());
    }
    return result;
}

QString sha1(const QString& text) {
    const auto digest = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha1);
    return QString::fromLatin1(digest.toHex().first(8));
}

} // namespace

void TestExportNames::prefixes_data() {
    QTest::addColumn<bool>("systemOpen");
    QTest::addColumn<QString>("path");
    QTest::addColumn<ExportScope>("scope");
    QTest::addColumn<QString>("prefix");
    const auto person = ExportScope::person;
    const auto whole = ExportScope::wholeSystem;
    QTest::newRow("system") << true << u"/home/x/Famiglia.brs"_s << whole
                            << u"Famiglia_Anna_15-03-2004_"_s;
    QTest::newRow("unsaved system") << true << QString() << whole << u"_Anna_15-03-2004_"_s;
    QTest::newRow("one of a system")
        << true << u"/home/x/Famiglia.brs"_s << person << u"Famiglia_Anna_15-03-2004_"_s;
    QTest::newRow("one of an unsaved system")
        << true << QString() << person << u"UntitledSystem_Anna_15-03-2004_"_s;
    QTest::newRow("person with a file")
        << false << u"/home/x/La mia.bio"_s << person << u"La mia_15-03-2004_"_s;
    QTest::newRow("person without a file") << false << QString() << person << u"Anna_15-03-2004_"_s;
}

void TestExportNames::prefixes() {
    QFETCH(bool, systemOpen);
    QFETCH(QString, path);
    QFETCH(ExportScope, scope);
    QFETCH(QString, prefix);
    Program data = systemOpen ? system(path, {u"Anna"_s}) : program(u"Anna"_s);
    data.state.filePath = systemOpen ? QString() : path;
    const auto made = [&](PageVariant variant) {
        return scope == ExportScope::person ? exportPrefix(data, variant)
                                            : exportPrefixes(data, variant).at(0);
    };
    QCOMPARE(made(PageVariant::screen), prefix);
    QCOMPARE(made(PageVariant::print), prefix + u"stampa_"_s);
}

void TestExportNames::datesHaveTwoTwoAndFourDigits() {
    for (const auto& locale : {QLocale(u"it_IT"_s), QLocale(u"en_US"_s), QLocale(u"ar_EG"_s)}) {
        const QLocale before;
        QLocale::setDefault(locale);
        const QString date = exportDate(toDateValue(QDate(812, 1, 2)));
        QLocale::setDefault(before);
        QCOMPARE(date, u"02-01-0812"_s);
    }
    QCOMPARE(exportDate(toDateValue(QDate(9999, 12, 31)) + 0.75), u"31-12-9999"_s);
}

void TestExportNames::baseNames_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("base");
    QTest::newRow("folder") << u"/a.b/c d.brs"_s << u"c d"_s;
    QTest::newRow("backslashes") << u"C:\\dati\\Casa.brs"_s << u"Casa"_s;
    QTest::newRow("first of the pieces") << u"/x/a.b.c.brs"_s << u"a"_s;
    QTest::newRow("blanks") << u"/x/  Casa  .brs"_s << u"Casa"_s;
    QTest::newRow("no ending") << u"Casa"_s << u"Casa"_s;
    QTest::newRow("only an ending") << u"/x/.brs"_s << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void TestExportNames::baseNames() {
    QFETCH(QString, path);
    QFETCH(QString, base);
    QCOMPARE(baseName(path), base);
}

void TestExportNames::fileNameParts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::newRow("plain") << u"Niccolò D'Amico-1_(a)"_s << u"Niccolò D'Amico-1_(a)"_s;
    QTest::newRow("forbidden") << u"/\\:*?\"<>|"_s << u"_________"_s;
    QTest::newRow("out of the folder") << u"../../etc/x"_s << u".._.._etc_x"_s;
    QTest::newRow("controls") << u"a\nb\tc\u007fd\u0085e"_s + QChar(0) << u"a_b_c_d_e_"_s;
    QTest::newRow("composed") << u"e\u0301"_s << u"\u00e9"_s;
    QTest::newRow("two units") << u"\U0001f600"_s << u"\U0001f600"_s;
    QTest::newRow("half a character")
        << u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0xDE00) << u"a_b_"_s;
}

void TestExportNames::fileNameParts() {
    QFETCH(QString, text);
    QFETCH(QString, part);
    QCOMPARE(fileNamePart(text), part);
    const bool isReplaced = part != text.normalized(QString::NormalizationForm_C);
    const QString end = isReplaced ? u'~' + sha1(text) : QString();
    QCOMPARE(exportPrefix(program(text), PageVariant::screen), part + end + u"_15-03-2004_"_s);
}

void TestExportNames::longNamesAreCut() {
    for (const QString& character :
         {u"x"_s, u"è"_s, u"李"_s, u"\U0001f600"_s, u"x\u0323\u0332"_s}) {
        for (const int length : {60, 90, 110, 210, 250, 300, 1000}) {
            const QString name = character.repeated(length);
            for (const Program& data :
                 {program(name), system(u"/x/"_s + name + u".brs"_s, {name})}) {
                const QString prefix = exportPrefix(data, PageVariant::print);
                QVERIFY(prefix.endsWith(u"_15-03-2004_stampa_"_s));
                // With the ending that an unfinished file bears.
                const QString file = weekFile(prefix, WeekRow::mean) + u".XXXXXX"_s;
                QVERIFY(file.toUtf8().size() <= 255);
                QVERIFY(prefix.isValidUtf16());
                QCOMPARE(exportPrefix(data, PageVariant::screen) + u"stampa_"_s, prefix);
                if (prefix.contains(u'~')) { // no character is cut in two
                    const qsizetype kept = prefix.indexOf(u'~');
                    const bool whole = prefix.first(kept).endsWith(character);
                    QVERIFY(whole || prefix.first(kept).endsWith(u'_'));
                    QVERIFY(file.toUtf8().size() > 255 - 12);
                }
            }
        }
    }
}

void TestExportNames::cutNamesStayApart() {
    const QString same = u"n"_s.repeated(300);
    const auto prefix = [](const QString& name) {
        return exportPrefix(program(name), PageVariant::screen);
    };
    QVERIFY(prefix(same + u"a"_s) != prefix(same + u"b"_s));
    QCOMPARE(prefix(same + u"a"_s), prefix(same + u"a"_s));
    const QString path = u"/x/"_s + same + u".brs"_s;
    QVERIFY(exportPrefix(system(path, {u"Anna"_s}), PageVariant::screen) !=
            exportPrefix(system(path, {u"Bruno"_s}), PageVariant::screen));
}

void TestExportNames::membersStayApart_data() {
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("expected"); // "#" stands for the mark of the whole
    const auto add = [](const char* title, const QStringList& names, const QStringList& expected) {
        QTest::newRow(title) << names << expected;
    };
    add("plain", {u"Anna"_s, u"Anna "_s, u" Anna"_s}, {u"Anna"_s, u"Anna "_s, u" Anna"_s});
    add("replaced", {u"A/B"_s, u"A:B"_s, u"A_B"_s}, {u"A_B#"_s, u"A_B#"_s, u"A_B"_s});
    add("replaced alone", {u"A/B"_s}, {u"A_B#"_s});
    add("case", {u"Anna"_s, u"ANNA"_s, u"Bice"_s}, {u"Anna#"_s, u"ANNA#"_s, u"Bice"_s});
    add("case of what was replaced", {u"a?"_s, u"A_"_s}, {u"a_#"_s, u"A_"_s});
    add("composed", {u"Niccol\u00f2"_s, u"Niccolo\u0300"_s},
        {u"Niccol\u00f2#"_s, u"Niccol\u00f2#"_s});
    add("equal", {u"Anna"_s, u"Bice"_s, u"Anna"_s}, {u"Anna#-1"_s, u"Bice"_s, u"Anna#-3"_s});
    add("equal and replaced", {u"A/B"_s, u"A/B"_s}, {u"A_B#-1"_s, u"A_B#-2"_s});
    add("nameless", {QString(), QString()}, {u"#-1"_s, u"#-2"_s});
    // Names made to look like those of other files.
    const QString marked = u"A_B~"_s + sha1(u"Casa_A/B"_s);
    add("like a mark", {u"A/B"_s, marked}, {u"A_B#"_s, marked + u'#'});
    add("like a mark in capitals", {marked.toUpper()}, {marked.toUpper() + u'#'});
    const QString placed = u"Anna~"_s + sha1(u"Casa_Anna"_s) + u"-3"_s;
    add("like a place", {u"Anna"_s, placed, u"Anna"_s},
        {u"Anna#-1"_s, placed + u'#', u"Anna#-3"_s});
}

void TestExportNames::membersStayApart() {
    QFETCH(const QStringList, names);
    QFETCH(const QStringList, expected);
    QStringList wanted;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString mark = u'~' + sha1(u"Casa_"_s + names.at(i));
        wanted << u"Casa_"_s + QString(expected.at(i)).replace(u'#', mark);
    }
    QCOMPARE(labels(names), wanted);

    // Each alone, as the windows export and print it, has the files of the run.
    Program data = system(u"/x/Casa.brs"_s, names);
    for (qsizetype i = 0; i < names.size(); ++i) {
        const SystemMember& member = data.state.systemMembers.at(static_cast<std::size_t>(i));
        data.biorhythm.name = member.name;
        data.biorhythm.birthDate = member.birthDate;
        QCOMPARE(exportPrefix(data, PageVariant::screen), wanted.at(i) + u"_15-03-2004_"_s);
    }
}

/// Long names that begin alike, more than marks of 32 bits can tell apart for certain, and equal
/// ones among them.
void TestExportNames::everyMemberOfALargeSystemHasItsOwnFiles() {
    QStringList names;
    for (int i = 0; i < 5'000; ++i) {
        names << QString(300, u'n') + QString::number(i / 2);
    }
    QSet<QString> seen;
    for (const QString& label : labels(names)) {
        QVERIFY(label.toUtf8().size() <= 210);
        seen << label.toCaseFolded();
    }
    QCOMPARE(seen.size(), names.size());
}

} // namespace quor::test
