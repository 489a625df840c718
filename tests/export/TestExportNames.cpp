#include "export/TestExportNames.h"

#include "export/ExportNames.h"

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

Program system(const QString& path, const QString& name) {
    Program result = program(name);
    result.state.systemOpen = true;
    result.state.systemFilePath = path;
    return result;
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
    Program data = program(u"Anna"_s);
    data.state.systemOpen = systemOpen;
    (systemOpen ? data.state.systemFilePath : data.state.filePath) = path;
    QCOMPARE(exportPrefix(data, scope, PageVariant::screen), prefix);
    QCOMPARE(exportPrefix(data, scope, PageVariant::print), prefix + u"stampa_"_s);
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
    QVERIFY(exportPrefix(program(text), ExportScope::person, PageVariant::screen).startsWith(part));
}

void TestExportNames::longNamesAreCut() {
    for (const QString& character :
         {u"x"_s, u"è"_s, u"李"_s, u"\U0001f600"_s, u"x\u0323\u0332"_s}) {
        for (const int length : {60, 90, 110, 210, 250, 300, 1000}) {
            const QString name = character.repeated(length);
            for (const Program& data : {program(name), system(u"/x/"_s + name + u".brs"_s, name)}) {
                const QString prefix =
                    exportPrefix(data, ExportScope::wholeSystem, PageVariant::print);
                QVERIFY(prefix.endsWith(u"_15-03-2004_stampa_"_s));
                // With the ending that an unfinished file bears.
                const QString file = weekFile(prefix, WeekRow::mean) + u".XXXXXX"_s;
                QVERIFY(file.toUtf8().size() <= 255);
                QVERIFY(prefix.isValidUtf16());
                const QString screen =
                    exportPrefix(data, ExportScope::wholeSystem, PageVariant::screen);
                QCOMPARE(screen + u"stampa_"_s, prefix);
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
        return exportPrefix(program(name), ExportScope::person, PageVariant::screen);
    };
    QVERIFY(prefix(same + u"a"_s) != prefix(same + u"b"_s));
    QCOMPARE(prefix(same + u"a"_s), prefix(same + u"a"_s));
    const QString path = u"/x/"_s + same + u".brs"_s;
    QVERIFY(exportPrefix(system(path, u"Anna"_s), ExportScope::person, PageVariant::screen) !=
            exportPrefix(system(path, u"Bruno"_s), ExportScope::person, PageVariant::screen));
}

} // namespace quor::test
