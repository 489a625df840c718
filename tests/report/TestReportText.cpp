#include "report/TestReportText.h"

#include "report/ReportText.h"
#include "storage/NamedFile.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FPrevMed.h"
#include "views/analysis/FStat.h"
#include "views/analysis/FStatMed.h"
#include "views/analysis/TrendArrow.h"

#include <QBuffer>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Program giulia(int day = 0) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Giulia Ferraro"_s;
    program.biorhythm.birthDate = toDateValue(QDate(1990, 7, 8));
    program.biorhythm.calculationDate = toDateValue(QDate(2026, 11, 21).addDays(day));
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    return program;
}

Program family(int members) {
    Program program = giulia();
    program.state.systemOpen = true;
    program.state.systemFilePath = u"/x/Casa.brs"_s;
    for (int i = 0; i < members; ++i) {
        program.state.systemMembers.push_back(
            {.name = u"Un nome molto lungo che non sta in nessuna colonna %1"_s.arg(i),
             .birthDate = toDateValue(QDate(1950 + i, 1 + i % 12, 5))});
    }
    program.state.systemCount = static_cast<std::int16_t>(members);
    return program;
}

QString textOf(const Program& program, TextCharset charset = TextCharset::utf8) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ReportStream stream(buffer);
    writeText(reportSubject(program), charset, stream);
    stream.flush();
    return QString::fromUtf8(buffer.data());
}

QString box(const QWidget& window, const char16_t* name) {
    const auto* field = window.findChild<QLineEdit*>(QString::fromUtf16(name));
    return field == nullptr ? u"(no box)"_s : field->text();
}

/// The line that begins so, its blanks made one.
QString line(const QString& text, const QString& beginning) {
    for (const QString& each : text.split(u'\n')) {
        if (each.trimmed().startsWith(beginning)) {
            return each.simplified();
        }
    }
    return u"(no line)"_s;
}

/// Boxes and arrows of a window's day state, as the report's lines begin.
void compareState(const QString& text, const QWidget& window) {
    const std::array names{u"Stato fisico:", u"Stato emotivo:", u"Stato intellettivo:", u"Media:"};
    const std::array boxes{u"Text2", u"Text3", u"Text4", u"Text5"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const QString name = QString::fromUtf16(names.at(i));
        const auto* arrow = window.findChild<TrendArrow*>(u"Image1_%1"_s.arg(i + 1));
        QVERIFY(arrow != nullptr);
        const QString expected = name + u' ' + box(window, boxes.at(i)) +
                                 (arrow->trend() == Trend::rising ? u" ↑"_s : u" ↓"_s);
        QVERIFY2(line(text, name).startsWith(expected), qPrintable(line(text, name)));
    }
}

void compareForecast(const QString& text, const QWidget& window) {
    const std::array names{u"Prossima inversione", u"Prossimo massimo", u"Prossimo minimo"};
    const std::array dates{u"Text1", u"Text2", u"Text3"};
    const std::array days{u"Text4", u"Text5", u"Text6"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const QString found = line(text, QString::fromUtf16(names.at(i)));
        const QString date = box(window, dates.at(i));
        const QString wait = box(window, days.at(i));
        QVERIFY2(found.contains(u": "_s + date), qPrintable(found));
        const QString words = wait == u"Mai"_s ? u"Mai"_s
                              : wait == u"0"_s ? u"oggi"_s
                              : wait == u"1"_s ? u"tra 1 giorno"_s
                                               : u"tra %1 giorni"_s.arg(wait);
        QVERIFY2(found.endsWith(words), qPrintable(found));
    }
}

} // namespace

void TestReportText::personSaysWhatTheWindowsShow() {
    for (const int day : {0, 1, 11, 12, 300, -20'000}) {
        const Program program = giulia(day);
        const QString text = textOf(program);
        QVERIFY(text.startsWith(u"Bioritmo di Giulia Ferraro\n"_s));
        compareState(text, FStat(program));
        compareForecast(text, FPrev(program));
    }
}

void TestReportText::systemSaysWhatTheWindowsShow() {
    for (const int members : {1, 2, 13}) {
        const Program program = family(members);
        const QString text = textOf(program);
        QVERIFY(text.startsWith(u"Sistema Casa\n"_s));
        compareState(text, FStatMed(program));
        compareForecast(text, FPrevMed(program));
    }
    QVERIFY(textOf(family(1)).contains(u"Il sistema ha un solo membro."_s));
}

void TestReportText::eightyColumns() {
    for (const TextCharset charset : {TextCharset::utf8, TextCharset::ascii}) {
        for (const int members : {0, 2, 12, 13, 40}) {
            const Program program = members == 0 ? giulia() : family(members);
            for (const QString& each : textOf(program, charset).split(u'\n')) {
                QVERIFY2(each.size() <= 80, qPrintable(each));
            }
        }
        Program longNamed = giulia();
        longNamed.biorhythm.name = u"Maria Eleonora "_s.repeated(20);
        const QStringList lines = textOf(longNamed, charset).split(u'\n');
        QCOMPARE(lines.constFirst().size(), 80);
        QVERIFY(lines.constFirst().endsWith(charset == TextCharset::utf8 ? u"…"_s : u"..."_s));
    }
}

void TestReportText::asciiTerminals() {
    const QString text = textOf(giulia(), TextCharset::ascii);
    QVERIFY(std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; }));
    QVERIFY(text.contains(u"Stato fisico:        -6 v      ######|"_s));
    QVERIFY(text.contains(u"Previsioni\n----------\n"_s));
    const QString rising = textOf(giulia(20), TextCharset::ascii);
    QVERIFY(rising.contains(u'^'));
}

void TestReportText::printableNames() {
    Program program = giulia();
    program.biorhythm.name = u"\x1b]0;x\x07"_s;
    QVERIFY(textOf(program).startsWith(u"Bioritmo di ?]0;x?\n"_s));
}

} // namespace quor::test
