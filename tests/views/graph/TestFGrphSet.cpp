#include "views/graph/TestFGrphSet.h"

#include "support/ScriptedDialogs.h"
#include "toolkit/DrawingPainter.h"
#include "toolkit/PictureBox.h"
#include "toolkit/ShowHelp.h"
#include "views/graph/FGrSetOpt.h"
#include "views/graph/FGrphSet.h"
#include "views/graph/WeekDrawing.h"

#include <QAccessible>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const WeeklyColours unusual{0x102030, 0xE0D0C0, 0x8000FF};

/// A window of a person born on 25/12/1981, with what it stands on.
struct Fixture {
    explicit Fixture(QDate calculation = {2004, 3, 17}) {
        resetToStartUp(program);
        Biorhythm& biorhythm = program.biorhythm;
        biorhythm.name = u"Maria Rossi"_s;
        biorhythm.birthDate = toDateValue({1981, 12, 25});
        biorhythm.calculationDate = toDateValue(calculation);
        biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    }

    void open() {
        window = new FGrphSet(program);
        owner.reset(window);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }

    template<typename T> [[nodiscard]] T* control(const QString& name) const {
        T* found = window->findChild<T*>(name);
        if (found == nullptr) {
            qFatal("no control %s", qPrintable(name));
        }
        return found;
    }

    [[nodiscard]] PictureBox* picture(WeekRow row) const {
        return control<PictureBox>(u"Picture1_%1"_s.arg(static_cast<int>(row)));
    }

    /// What the picture of a row has to show.
    [[nodiscard]] Drawing expected(WeekRow row, const Week& week,
                                   const WeeklyColours& colours) const {
        const PictureBox* box = picture(row);
        const WeekPlot plot = layOutWeek(box->size());
        return drawWeekRow(week.weekStartDayCount, row, plot,
                           {.colours = colours,
                            .weekday = week.weekday,
                            .labelWidth = box->textWidth(rowLabel(row), true),
                            .labelDrop = layOutTexts(plot, {box->font()}).labelDrop});
    }

    Program program;
    QPointer<FGrphSet> window;
    std::unique_ptr<FGrphSet> owner;
};

const Week thatWeek{.weekday = 3, .weekStart = 38061, .weekStartDayCount = 8116};

QColor background(const QLabel* label) {
    return label->palette().color(label->backgroundRole());
}

} // namespace

void TestFGrphSet::controls() {
    Fixture fixture;
    fixture.open();
    QCOMPARE(fixture.window->windowTitle(), u"Grafico settimanale"_s);
    QCOMPARE(fixture.control<QPushButton>(u"Command1"_s)->text(), u"&Chiudi"_s);
    QCOMPARE(fixture.control<QPushButton>(u"Command2"_s)->text(), u"&Legenda && Opzioni"_s);
    QCOMPARE(fixture.control<QPushButton>(u"Command3"_s)->text(), u"&?"_s);
    QCOMPARE(fixture.control<QPushButton>(u"Command3"_s)->toolTip(), u"Guida di questa finestra"_s);
    QCOMPARE(fixture.control<QLabel>(u"Label1_0"_s)->text(), u"Ottimi"_s);
    QCOMPARE(fixture.control<QLabel>(u"Label1_1"_s)->text(), u"Stabili"_s);
    QCOMPARE(fixture.control<QLabel>(u"Label1_2"_s)->text(), u"Critici"_s);
    for (const WeekRow row : weekRows) {
        QCOMPARE(fixture.picture(row)->accessibleName(), rowLabel(row));
        QCOMPARE(QAccessible::queryAccessibleInterface(fixture.picture(row))->role(),
                 QAccessible::Chart);
    }
}

void TestFGrphSet::onePictureForEachRow() {
    Fixture fixture;
    fixture.open();
    for (const WeekRow row : weekRows) {
        const PictureBox* box = fixture.picture(row);
        QCOMPARE(box->drawing(), fixture.expected(row, thatWeek, defaultWeeklyColours()));
        QCOMPARE(std::get<Text>(box->drawing().primitives.at(14)).text, rowLabel(row));
    }
}

void TestFGrphSet::copiesTheRecordWhenMade() {
    Fixture fixture;
    setWeeklyColours(fixture.program.biorhythm, unusual);
    fixture.open();
    Biorhythm& biorhythm = fixture.program.biorhythm;
    biorhythm.calculationDate += 100;
    biorhythm.daysAtGraphStart += 100;
    setWeeklyColours(biorhythm, defaultWeeklyColours());
    fixture.window->resize(fixture.window->size() + QSize(50, 80));
    QTest::qWait(0);
    const WeekRow row = WeekRow::physical;
    QCOMPARE(fixture.picture(row)->drawing(), fixture.expected(row, thatWeek, unusual));
}

void TestFGrphSet::weekOfASundayAndOfAMonday() {
    for (const auto& [day, weekday] : {std::pair(21, 7), std::pair(15, 1)}) {
        Fixture fixture({2004, 3, day});
        fixture.open();
        Week week = thatWeek;
        week.weekday = weekday;
        for (const WeekRow row : weekRows) {
            QCOMPARE(fixture.picture(row)->drawing(),
                     fixture.expected(row, week, defaultWeeklyColours()));
        }
    }
}

void TestFGrphSet::birthIsTheOneOfTheLastApply() {
    Fixture fixture;
    fixture.program.biorhythm.birthDate = 0;
    fixture.open();
    const WeekRow row = WeekRow::mean;
    QCOMPARE(fixture.picture(row)->drawing(),
             fixture.expected(row, thatWeek, defaultWeeklyColours()));
}

void TestFGrphSet::legendWearsItsColours() {
    Fixture fixture;
    setWeeklyColours(fixture.program.biorhythm, unusual);
    fixture.open();
    const auto* best = fixture.control<QLabel>(u"Label1_0"_s);
    const auto* stable = fixture.control<QLabel>(u"Label1_1"_s);
    const auto* critical = fixture.control<QLabel>(u"Label1_2"_s);
    QCOMPARE(background(best), toQColor(unusual[2]));
    QCOMPARE(background(stable), toQColor(unusual[1]));
    QCOMPARE(background(critical), toQColor(unusual[0]));
    for (const QLabel* label : {best, stable, critical}) {
        QVERIFY(label->autoFillBackground());
    }
    // Dark text on the light one, light text on the dark one.
    QCOMPARE(stable->palette().color(stable->foregroundRole()), QColor(Qt::black));
    QCOMPARE(critical->palette().color(critical->foregroundRole()), QColor(Qt::white));
}

void TestFGrphSet::newColoursReplaceAndRedraw() {
    Fixture fixture;
    fixture.open();
    fixture.window->applyWeeklyOptions(unusual);
    for (const WeekRow row : weekRows) {
        QCOMPARE(fixture.picture(row)->drawing(), fixture.expected(row, thatWeek, unusual));
    }
    QCOMPARE(background(fixture.control<QLabel>(u"Label1_0"_s)), toQColor(unusual[2]));
    // What the window shows is no change of the record.
    QCOMPARE(weeklyColours(fixture.program.biorhythm), defaultWeeklyColours());
    QVERIFY(!fixture.program.state.modified);
}

void TestFGrphSet::optionsDialogStartsFromTheWindow() {
    Fixture fixture;
    fixture.program.state.systemOpen = true;
    fixture.open();
    fixture.window->applyWeeklyOptions(unusual);

    QTest::mouseClick(fixture.control<QPushButton>(u"Command2"_s), Qt::LeftButton);
    QPointer<FGrSetOpt> dialog = fixture.window->findChild<FGrSetOpt*>();
    QVERIFY(dialog && dialog->isVisible() && dialog->isModal());

    ScriptedDialogs script;
    script.expectColour(u"Scegli il colore"_s, toQColor(unusual[2]), QColor(1, 2, 3));
    QTest::mouseClick(dialog->findChild<QAbstractButton*>(u"Picture1_2"_s), Qt::LeftButton);
    QVERIFY(script.finished());
    QTest::mouseClick(dialog->findChild<QPushButton*>(u"Command1"_s), Qt::LeftButton);

    const WeeklyColours chosen{unusual[0], unusual[1], 0x030201};
    for (const WeekRow row : weekRows) {
        QCOMPARE(fixture.picture(row)->drawing(), fixture.expected(row, thatWeek, chosen));
    }
    QCOMPARE(weeklyColours(fixture.program.biorhythm), defaultWeeklyColours());
    QTRY_VERIFY(dialog.isNull());
}

void TestFGrphSet::textsOfARowDoNotMeet_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("smallest") << QSize(0, 0);
    QTest::newRow("middle") << QSize(800, 450);
    QTest::newRow("first") << QSize();
    QTest::newRow("large") << QSize(1600, 1000);
}

void TestFGrphSet::textsOfARowDoNotMeet() {
    QFETCH(QSize, size);
    Fixture fixture;
    fixture.open();
    if (size.isValid()) {
        fixture.window->resize(size.expandedTo(fixture.window->minimumSizeHint()));
        QTest::qWait(0);
    }
    for (const WeekRow row : weekRows) {
        const PictureBox* box = fixture.picture(row);
        std::vector<QRect> areas;
        for (const Primitive& primitive : box->drawing().primitives) {
            if (const Text* text = std::get_if<Text>(&primitive)) {
                areas.emplace_back(text->topLeft, QSize(box->textWidth(text->text, text->bold),
                                                        box->textHeight()));
            }
        }
        QCOMPARE(areas.size(), std::size_t{8});
        for (std::size_t i = 0; i < areas.size(); ++i) {
            QVERIFY(box->rect().contains(areas.at(i)));
            for (std::size_t j = i + 1; j < areas.size(); ++j) {
                QVERIFY(!areas.at(i).intersects(areas.at(j)));
            }
        }
    }
}

void TestFGrphSet::largeFontsAreReduced() {
    Fixture fixture;
    fixture.open();
    QFont large = fixture.window->font();
    large.setPointSizeF(20);
    fixture.window->setFont(large);
    QTest::qWait(0);
    const PictureBox* box = fixture.picture(WeekRow::mean);
    QVERIFY(box->font().pointSizeF() < 20);
    QVERIFY(box->font().pointSizeF() >= 6);
    // More room, larger text.
    const double before = box->font().pointSizeF();
    fixture.window->resize(3000, 1500);
    QTest::qWait(0);
    QVERIFY(box->font().pointSizeF() > before);
}

void TestFGrphSet::resizingLaysOutAgain() {
    Fixture fixture;
    fixture.open();
    const PictureBox* box = fixture.picture(WeekRow::emotional);
    const Drawing before = box->drawing();
    fixture.window->resize(1400, 900);
    QTest::qWait(0);
    QVERIFY(box->drawing() != before);
    QCOMPARE(box->drawing(),
             fixture.expected(WeekRow::emotional, thatWeek, defaultWeeklyColours()));
}

void TestFGrphSet::closes() {
    Fixture fixture;
    fixture.open();
    QMdiArea area;
    QPointer<QMdiSubWindow> sub = area.addSubWindow(fixture.owner.release());
    area.show();
    const QSignalSpy closed(fixture.window, &ChildWindow::closed);
    QTest::mouseClick(fixture.control<QPushButton>(u"Command1"_s), Qt::LeftButton);
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(fixture.window.isNull());
    QVERIFY(area.subWindowList().isEmpty());
}

void TestFGrphSet::asksForItsHelp() {
    Fixture fixture;
    fixture.open();
    QStringList pages;
    QWidget* asking = nullptr;
    setHelpViewer([&](QWidget* window, const QString& path) {
        asking = window;
        pages << path;
    });
    QTest::mouseClick(fixture.control<QPushButton>(u"Command3"_s), Qt::LeftButton);
    setHelpViewer({});
    QCOMPARE(pages, QStringList(helpPath(u"2settimanale.html"_s)));
    QCOMPARE(asking, static_cast<QWidget*>(fixture.window));
}

} // namespace quor::test
