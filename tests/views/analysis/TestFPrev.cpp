#include "views/analysis/TestFPrev.h"

#include "support/Hermetic.h"
#include "toolkit/ShowHelp.h"
#include "views/analysis/FPrev.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Program personAt(std::int32_t dayCount) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Maria"_s;
    program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    program.biorhythm.birthDate = program.biorhythm.calculationDate - dayCount;
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    return program;
}

QString text(const QWidget& window, const QString& box) {
    return window.findChild<QLineEdit*>(box)->text();
}

QStringList dates(const QWidget& window) {
    return {text(window, u"Text1"_s), text(window, u"Text2"_s), text(window, u"Text3"_s)};
}

QStringList waits(const QWidget& window) {
    return {text(window, u"Text4"_s), text(window, u"Text5"_s), text(window, u"Text6"_s)};
}

} // namespace

void TestFPrev::knownPerson() {
    Program program = personAt(0);
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    const FPrev window(program);
    QCOMPARE(waits(window), (QStringList{u"4"_s, u"9"_s, u"388"_s}));
    const DateValue start = program.biorhythm.calculationDate;
    QCOMPARE(dates(window),
             (QStringList{longDate(start + 4), longDate(start + 9), longDate(start + 388)}));
    if (datesAreItalian()) {
        QCOMPARE(dates(window),
                 (QStringList{u"venerdì 19 marzo 2004"_s, u"mercoledì 24 marzo 2004"_s,
                              u"giovedì 7 aprile 2005"_s}));
    }
}

void TestFPrev::signChangeBeforeTomorrow() {
    // Between day 8007 and day 8008 the mean changes its sign.
    const FPrev window(personAt(8007));
    QCOMPARE(text(window, u"Text4"_s), u"1"_s);
    QCOMPARE(text(window, u"Text1"_s), longDate(toDateValue(QDate(2004, 3, 16))));
}

void TestFPrev::zeroTodayEndsTheSearchTomorrow() {
    QCOMPARE(text(FPrev(personAt(0)), u"Text4"_s), u"1"_s);
    // Exactly zero tomorrow.
    QCOMPARE(text(FPrev(personAt(-1)), u"Text4"_s), u"1"_s);
    QCOMPARE(text(FPrev(personAt(21251)), u"Text4"_s), u"1"_s);
}

void TestFPrev::maximumTodayIsNotReported() {
    QCOMPARE(text(FPrev(personAt(372)), u"Text5"_s), u"922"_s);
    QCOMPARE(text(FPrev(personAt(-372)), u"Text6"_s), u"365"_s); // day -7
}

void TestFPrev::maximumTomorrowIsOne() {
    QCOMPARE(text(FPrev(personAt(371)), u"Text5"_s), u"1"_s);
    QCOMPARE(text(FPrev(personAt(371)), u"Text2"_s), longDate(toDateValue(QDate(2004, 3, 16))));
    QCOMPARE(text(FPrev(personAt(6)), u"Text5"_s), u"1"_s); // today as well as tomorrow
}

void TestFPrev::beforeTheBirth() {
    // Nine days before the birth comes the minimum of day -7, and on day 6 the maximum.
    const FPrev window(personAt(-9));
    QCOMPARE(waits(window).mid(1), (QStringList{u"15"_s, u"2"_s}));
}

void TestFPrev::boxesAreReadOnlyAndCopyable() {
    FPrev window(personAt(8116));
    for (int i = 1; i <= 6; ++i) {
        auto* box = window.findChild<QLineEdit*>(u"Text%1"_s.arg(i));
        const QString shown = box->text();
        QVERIFY(box->isReadOnly());
        QVERIFY(box->isEnabled());
        QTest::keyClicks(box, u"5"_s);
        QCOMPARE(box->text(), shown);
        box->setFocus();
        box->selectAll();
        QTest::keySequence(box, QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);
    }
}

void TestFPrev::longestDateFits() {
    FPrev window(personAt(8116));
    window.resize(window.minimumSizeHint());
    window.layout()->activate();
    for (const QString& name : {u"Text1"_s, u"Text2"_s, u"Text3"_s}) {
        const auto* box = window.findChild<QLineEdit*>(name);
        // What the style leaves inside the box, less the blank that the box keeps on either side.
        QStyleOptionFrame option;
        option.initFrom(box);
        option.lineWidth = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box);
        const int room =
            box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box).width() - 2 * 2;
        QVERIFY(room > box->fontMetrics().horizontalAdvance(u"mercoledì 30 settembre 2026"_s));
        QVERIFY(room > box->fontMetrics().horizontalAdvance(box->text()));
    }
}

void TestFPrev::staysAsItWasMade() {
    Program program = personAt(8116);
    const FPrev first(program);
    program = personAt(371);
    program.biorhythm.calculationDate += 100;
    const FPrev second(program);
    QCOMPARE(waits(first), (QStringList{u"4"_s, u"9"_s, u"388"_s}));
    QCOMPARE(text(second, u"Text5"_s), u"1"_s);
    QCOMPARE(text(first, u"Text1"_s), longDate(toDateValue(QDate(2004, 3, 19))));
}

void TestFPrev::titleAndObjectName() {
    const FPrev window(personAt(1));
    QCOMPARE(window.windowTitle(), u"Previsioni"_s);
    QCOMPARE(window.objectName(), u"FPrev"_s);
}

void TestFPrev::labels() {
    const FPrev window(personAt(1));
    const auto label = [&](const QString& name) { return window.findChild<QLabel*>(name)->text(); };
    QCOMPARE(label(u"LabelInversion"_s), u"Prossima inversione (Media = 0):"_s);
    QCOMPARE(label(u"LabelMaximum"_s), u"Prossimo massimo (Media = 10):"_s);
    QCOMPARE(label(u"LabelMinimum"_s), u"Prossimo minimo (Media = -10):"_s);
    QCOMPARE(label(u"LabelDate"_s), u"In data:"_s);
    QCOMPARE(label(u"LabelDays"_s), u"Tra giorni:"_s);
    for (int i = 1; i <= 6; ++i) {
        QVERIFY(!window.findChild<QLineEdit*>(u"Text%1"_s.arg(i))->accessibleName().isEmpty());
    }
    for (const QLabel* row : {window.findChild<QLabel*>(u"LabelInversion"_s),
                              window.findChild<QLabel*>(u"LabelMaximum"_s),
                              window.findChild<QLabel*>(u"LabelMinimum"_s)}) {
        QVERIFY(row->buddy());
    }
}

void TestFPrev::closes() {
    QMdiArea area;
    const QPointer<FPrev> window = new FPrev(personAt(1));
    const QPointer<QMdiSubWindow> frame = area.addSubWindow(window);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    area.show();
    window->show();
    const QSignalSpy closed(window, &ChildWindow::closed);
    auto* button = window->findChild<QPushButton*>(u"Command1"_s);
    QCOMPARE(button->text(), u"&Chiudi"_s);
    button->click();
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(!window && !frame);
}

void TestFPrev::helpOpensItsTopic() {
    FPrev window(personAt(1));
    QStringList opened;
    setHelpViewer([&](QWidget* asking, const QString& path) {
        QCOMPARE(asking, &window);
        opened << path;
    });
    auto* button = window.findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(button->text(), u"&?"_s);
    QCOMPARE(button->toolTip(), u"Guida di questa finestra"_s);
    button->click();
    setHelpViewer({});
    QCOMPARE(opened, QStringList{helpPath(u"2prev.html"_s)});
}

void TestFPrev::tabOrder() {
    const FPrev window(personAt(1));
    QStringList order;
    const QWidget* first = window.findChild<QWidget*>(u"Text1"_s);
    const QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0) {
            order << next->objectName();
        }
        next = next->nextInFocusChain();
    } while (next != first);
    QCOMPARE(order, (QStringList{u"Text1"_s, u"Text4"_s, u"Text2"_s, u"Text5"_s, u"Text3"_s,
                                 u"Text6"_s, u"Command1"_s, u"Command2"_s}));
}

} // namespace quor::test
