#include "views/graph/TestFGrphMed.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "toolkit/PictureBox.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphMed.h"

#include "support/Hermetic.h"
#include "support/RecordingFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr DateValue calculationDate = 38061; // 2004-03-15

template<typename T> T* child(const QWidget& window, const QString& name) {
    return window.findChild<T*>(name);
}
PictureBox* picture(const QWidget& window) {
    return child<PictureBox>(window, u"Picture1"_s);
}
QString text(const QWidget& window, const QString& name) {
    return child<QLineEdit>(window, name)->text();
}
QString helpText(const QWidget& window) {
    return child<QPlainTextEdit>(window, u"Text4"_s)->toPlainText();
}
GraphPlot plotOf(const QWidget& window, std::int32_t daysAround) {
    return layOutGraph(picture(window)->size(), daysAround);
}
void press(const QWidget& window, int x, Qt::MouseButton button = Qt::RightButton) {
    QTest::mousePress(picture(window), button, {}, {x, picture(window)->height() / 3});
}

void showAt(GraphWindow& window, QSize size) {
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.resize(size);
    window.show();
    QCoreApplication::processEvents();
}

/// An open system whose members have these day counts on the calculation date.
Program systemOf(const std::vector<std::int32_t>& dayCounts, std::int16_t graphDaysAdjust = 0) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = calculationDate;
    program.biorhythm.graphDaysAdjust = graphDaysAdjust;
    program.state.systemOpen = true;
    for (const std::int32_t dayCount : dayCounts) {
        const QString name = u"Persona %1"_s.arg(program.state.systemMembers.size());
        program.state.systemMembers.push_back({name, calculationDate - dayCount});
    }
    program.state.systemCount = static_cast<std::int16_t>(dayCounts.size());
    return program;
}

/// The graph of a system, shown at a fixed size.
class Fixture {
  public:
    explicit Fixture(const std::vector<std::int32_t>& dayCounts = {8116, 20411, 61},
                     std::int16_t graphDaysAdjust = 0)
        : program(systemOf(dayCounts, graphDaysAdjust))
        , window(program, frame) {
        showAt(window, {900, 640});
    }

    Program program;
    RecordingFrame frame;
    FGrphMed window;
};

template<typename Kind> std::vector<Kind> all(const Drawing& drawing) {
    std::vector<Kind> found;
    for (const Primitive& primitive : drawing.primitives) {
        if (const auto* kind = std::get_if<Kind>(&primitive)) {
            found.push_back(*kind);
        }
    }
    return found;
}

/// The curves of a drawing, by their colour.
std::vector<Curve> curves(const Drawing& drawing, Colour colour) {
    std::vector<Curve> found = all<Curve>(drawing);
    std::erase_if(found, [colour](const Curve& curve) { return curve.stroke.colour != colour; });
    return found;
}

/// How often a source was asked, and whether the cursor was busy meanwhile.
struct Count {
    int series = 0;
    bool busy = true;
};

class CountingSource final : public GraphSource {
  public:
    explicit CountingSource(Count& count)
        : m_count(count) {}

    [[nodiscard]] GraphSeries series(std::int32_t daysAround) const override {
        ++m_count.series;
        const QCursor* cursor = QGuiApplication::overrideCursor();
        m_count.busy = m_count.busy && cursor != nullptr && cursor->shape() == Qt::WaitCursor;
        return personSeries(0, daysAround);
    }
    [[nodiscard]] DayValues valuesOn(std::int32_t /*day*/,
                                     std::int32_t /*daysAround*/) const override {
        return {};
    }
    [[nodiscard]] bool takesLong(std::int32_t /*daysAround*/) const override { return true; }

  private:
    Count& m_count;
};

class CountingWindow final : public GraphWindow {
  public:
    CountingWindow(Program& program, Frame& frame, Count& count)
        : GraphWindow(program, frame, std::make_unique<CountingSource>(count), {}, nullptr) {}
};

} // namespace

void TestFGrphMed::showsTheSystem() {
    const Fixture fixture;
    QCOMPARE(fixture.window.objectName(), u"FGrphMed"_s);
    QCOMPARE(fixture.window.windowTitle(), u"Grafico di sistema"_s);
    QCOMPARE(text(fixture.window, u"Text1"_s), u"lunedì 15 marzo 2004"_s);
    QCOMPARE(text(fixture.window, u"Text2"_s), u"martedì 24 febbraio 2004"_s);
    QCOMPARE(text(fixture.window, u"Text3"_s), u"domenica 4 aprile 2004"_s);
    QCOMPARE(
        helpText(fixture.window),
        u"--> La finestra grafico mostra l'andamento delle curve scelte in un arco di giorni attorno a quello utilizzato nella data di calcolo.\n\n--> Ogni valore è la media dei valori di tutti i bioritmi del sistema.\n\n--> Cliccando col tasto destro sul grafico apparirà un piccolo menu con le statistiche parziali del punto prescelto.\n\n--> Si possono selezionare le curve desiderate nel grafico nel riquadro in basso a destra. Sarà necessario premere il tasto Aggiorna perchè i cambiamenti vengano effettuati."_s);

    const Drawing& drawing = picture(fixture.window)->drawing();
    QCOMPARE(all<FilledBox>(drawing).size(), std::size_t{40});
    QCOMPARE(all<Text>(drawing).size(), std::size_t{40});
    QCOMPARE(all<Line>(drawing).size(), std::size_t{1 + 41 + 3});
    const GraphPlot plot = plotOf(fixture.window, 20);
    const auto expect = [&](Colour colour, std::size_t curve, auto value) {
        for (std::int32_t day = 0; day <= 40; ++day) {
            const std::int32_t offset = day - 20;
            const double mean =
                (value(8116 + offset) + value(20411 + offset) + value(61 + offset)) / 3;
            QCOMPARE(curves(drawing, colour).at(curve).points.at(static_cast<std::size_t>(day)),
                     QPoint(plot.x(day), plot.y(mean)));
        }
    };
    expect(0xFF0000, 1, [](std::int32_t day) { return cycleValue(day, Period::physical); });
    expect(0x0000FF, 1, [](std::int32_t day) { return cycleValue(day, Period::emotional); });
    expect(0x00FF00, 1, [](std::int32_t day) { return cycleValue(day, Period::intellectual); });
    expect(0x00FFFF, 0, [](std::int32_t day) { return cycleMean(day); });
}

void TestFGrphMed::controls_data() {
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("help");
    QTest::newRow("1")
        << u"Check1"_s << u"Fisico"_s << u"Abilita/Disabilita il disegno dello stato fisico"_s
        << u"--> La curva fisica rappresenta lo stato fisico medio dei bioritmi del sistema."_s;
    QTest::newRow("2")
        << u"Check2"_s << u"Emotivo"_s << u"Abilita/Disabilita il disegno dello stato emotivo"_s
        << u"--> La curva emotiva rappresenta lo stato emotivo medio dei bioritmi del sistema."_s;
    QTest::newRow("3")
        << u"Check3"_s << u"Intellettivo"_s
        << u"Abilita/Disabilita il disegno dello stato intellettivo"_s
        << u"--> La curva intellettiva rappresenta lo stato intellettivo medio dei bioritmi del sistema."_s;
    QTest::newRow("4")
        << u"Check4"_s << u"Media Energetica"_s
        << u"Abilita/Disabilita il disegno della media energetica"_s
        << u"--> La curva media traccia una media matematica delle altre tre curve."_s;
    QTest::newRow("5")
        << u"Check5"_s << u"Enchance"_s << QString()
        << u"--> La modalità enchance visualizza a barre colorate lo stato del giorno. Il colore tende allo stato prevalente quel giorno, quindi una barra molto chiara fa presupporre un buono stato bioritmico."_s;
}

void TestFGrphMed::controls() {
    QFETCH(QString, check);
    QFETCH(QString, caption);
    QFETCH(QString, toolTip);
    QFETCH(QString, help);
    const Fixture fixture;
    auto* box = child<QCheckBox>(fixture.window, check);
    QVERIFY(box->isChecked());
    QCOMPARE(box->text(), caption);
    QCOMPARE(box->toolTip(), toolTip);
    box->click();
    QCOMPARE(
        helpText(fixture.window),
        help +
            u"\n\n--> Perchè i cambiamenti diventino definitivi nel grafico occorre premere il tasto Aggiorna."_s);
    QCOMPARE(child<QPushButton>(fixture.window, u"Command1"_s)->text(), u"&Aggiorna"_s);
    QCOMPARE(child<QGroupBox>(fixture.window, u"Frame1"_s)->title(), u"Opzioni grafico"_s);
    QCOMPARE(child<QGroupBox>(fixture.window, u"Frame2"_s)->title(), u"Help Finestra grafico"_s);
}

void TestFGrphMed::checkBoxesActOnAggiorna() {
    const Fixture fixture;
    const Drawing before = picture(fixture.window)->drawing();
    for (int i = 1; i <= 5; ++i) {
        child<QCheckBox>(fixture.window, u"Check%1"_s.arg(i))->click();
    }
    QCOMPARE(picture(fixture.window)->drawing(), before);
    QCOMPARE(fixture.program.biorhythm.showFlags(), (ShowFlags{true, true, true, true, true}));

    child<QPushButton>(fixture.window, u"Command1"_s)->click();
    const Drawing& after = picture(fixture.window)->drawing();
    QVERIFY(all<FilledBox>(after).empty());
    QVERIFY(all<Curve>(after).empty());
    QCOMPARE(all<Line>(after).size(), std::size_t{1 + 41 + 3});
    QCOMPARE(all<Text>(after).size(), std::size_t{40});
}

void TestFGrphMed::oneMemberIsDrawnAsAPerson_data() {
    QTest::addColumn<int>("dayCount");
    QTest::addColumn<int>("daysAround");
    QTest::newRow("a life") << 8116 << 20;
    QTest::newRow("one day") << 20411 << 1;
    QTest::newRow("the birth in the middle") << 0 << 30;
    QTest::newRow("a birth to come") << -9000 << 45;
}

void TestFGrphMed::oneMemberIsDrawnAsAPerson() {
    QFETCH(const int, dayCount);
    QFETCH(const int, daysAround);
    const auto adjust = static_cast<std::int16_t>(daysAround - GRAPH_BASE_DAYS);
    Program program = systemOf({dayCount}, adjust);
    program.biorhythm.birthDate = calculationDate - dayCount;
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    RecordingFrame frame;
    FGrphMed system(program, frame);
    showAt(system, {900, 640});
    FGrph person(program, frame);
    showAt(person, {900, 640});
    QCOMPARE(picture(person)->size(), picture(system)->size());

    // The bars stand in the same places; only a person's take their colours from rounded values.
    const auto systemBars = all<FilledBox>(picture(system)->drawing());
    const auto personBars = all<FilledBox>(picture(person)->drawing());
    QCOMPARE(systemBars.size(), personBars.size());
    for (std::size_t i = 0; i < systemBars.size(); ++i) {
        QCOMPARE(systemBars[i].area, personBars[i].area);
    }
    for (const GraphWindow* window :
         {static_cast<GraphWindow*>(&system), static_cast<GraphWindow*>(&person)}) {
        child<QCheckBox>(*window, u"Check5"_s)->click();
        child<QPushButton>(*window, u"Command1"_s)->click();
    }
    QCOMPARE(all<Curve>(picture(system)->drawing()).size(), std::size_t{10});
    QCOMPARE(picture(system)->drawing(), picture(person)->drawing());
}

void TestFGrphMed::halfAPeriodApartGivesAFlatCurve() {
    const Fixture fixture({8116, 8116 - 14});
    const int baseline = plotOf(fixture.window, 20).baseline;
    const auto emotional = curves(picture(fixture.window)->drawing(), 0x0000FF);
    QCOMPARE(emotional.size(), std::size_t{3});
    for (const QPoint& point : emotional[1].points) {
        QCOMPARE(point.y(), baseline);
    }
    const auto physical = curves(picture(fixture.window)->drawing(), 0xFF0000);
    QVERIFY(std::ranges::any_of(physical.at(1).points,
                                [baseline](QPoint point) { return point.y() != baseline; }));
}

void TestFGrphMed::bars() {
    const Fixture fixture({8116, 8120, 20411}, 100);
    const auto bars = all<FilledBox>(picture(fixture.window)->drawing());
    QCOMPARE(bars.size(), std::size_t{240});
    std::int32_t offset = -120;
    for (const FilledBox& bar : bars) {
        Colour expected = 0;
        int shift = 0;
        for (const Period period : periods) {
            const double mean =
                (cycleValue(8116 + offset, period) + cycleValue(8120 + offset, period) +
                 cycleValue(20411 + offset, period)) /
                3;
            const auto channel = static_cast<int>(roundHalfEven((mean + 10) * 255 / 20));
            QVERIFY(channel >= 115 && channel <= 140);
            expected |= channel << shift;
            shift += 8;
        }
        QCOMPARE(bar.fill, expected);
        ++offset;
    }
}

void TestFGrphMed::popupOfADay() {
    const Fixture fixture({8116, 8116, 8120});
    press(fixture.window, plotOf(fixture.window, 20).x(20));
    QCOMPARE(fixture.frame.popups.size(), std::size_t{1});
    const DayPopup& popup = fixture.frame.popups[0];
    QCOMPARE(popup.day, u"Giorno 15/03/2004"_s);
    // Twice sin(20 · 2π/23), sin(24 · 2π/28), sin(31 · 2π/33) and once those four days later.
    QCOMPARE(popup.physical, u"Fisico: -4"_s);
    QCOMPARE(popup.emotional, u"Emotivo: -5"_s);
    QCOMPARE(popup.intellectual, u"Intellettivo: -1"_s);
    QCOMPARE(popup.mean, u"Media: -3"_s);
}

void TestFGrphMed::popupEnds() {
    const Fixture fixture;
    const GraphPlot plot = plotOf(fixture.window, 20);
    press(fixture.window, plot.plotLeft);
    press(fixture.window, plot.right());
    press(fixture.window, plot.x(20), Qt::LeftButton);
    press(fixture.window, plot.x(20), Qt::MiddleButton);
    QVERIFY(fixture.frame.popups.empty());
    press(fixture.window, plot.plotLeft + 1);
    press(fixture.window, plot.right() - 1);
    QCOMPARE(fixture.frame.popups.size(), std::size_t{2});
    QCOMPARE(fixture.frame.popups[0].day, u"Giorno 24/02/2004"_s);
    QCOMPARE(fixture.frame.popups[1].day, u"Giorno 04/04/2004"_s);
}

void TestFGrphMed::optionsChangeThisWindowOnly() {
    Fixture fixture;
    FGrphMed other(fixture.program, fixture.frame);
    showAt(other, {900, 640});
    const Drawing others = picture(other)->drawing();

    fixture.window.SetOptions();
    auto* dialog = fixture.window.findChild<FGrOpt*>();
    QVERIFY(dialog != nullptr && dialog->isVisible());
    QCOMPARE(text(*dialog, u"Text1"_s), u"20"_s);
    QCOMPARE(child<QComboBox>(*dialog, u"Combo1"_s)->currentIndex(), 2);
    child<QLineEdit>(*dialog, u"Text1"_s)->setText(u"5"_s);
    child<QPushButton>(*dialog, u"Command1"_s)->click();

    QCOMPARE(text(fixture.window, u"Text2"_s), u"mercoledì 10 marzo 2004"_s);
    QCOMPARE(all<FilledBox>(picture(fixture.window)->drawing()).size(), std::size_t{10});
    QCOMPARE(picture(other)->drawing(), others);
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, std::int16_t{0});
    QVERIFY(!fixture.program.state.modified);

    // The next dialog starts from the window's values.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    fixture.window.SetOptions();
    QCOMPARE(text(*fixture.window.findChild<FGrOpt*>(), u"Text1"_s), u"5"_s);
}

/// Unlike a person's curves, which keep their first day, the means follow the dates of a new span.
void TestFGrphMed::anySpanIsCentredOnTheDate() {
    Fixture fixture;
    const GraphOptions wider{
        .colours = defaultGraphOptions().colours, .graphDaysAdjust = 10, .dayIndexPosition = 2};
    fixture.window.applyGraphOptions(wider);
    Fixture fresh({8116, 20411, 61}, 10);
    QCOMPARE(picture(fixture.window)->drawing(), picture(fresh.window)->drawing());

    const int middle = plotOf(fixture.window, 30).x(30);
    press(fixture.window, middle);
    press(fresh.window, middle);
    QCOMPARE(fixture.frame.popups.at(0).day, u"Giorno 15/03/2004"_s);
    QCOMPARE(fixture.frame.popups.at(0).physical, fresh.frame.popups.at(0).physical);
    QCOMPARE(fixture.frame.popups.at(0).mean, fresh.frame.popups.at(0).mean);
}

void TestFGrphMed::theSeriesIsWorkedOutOnlyForANewSpan() {
    Program program = systemOf({8116});
    RecordingFrame frame;
    Count count;
    CountingWindow window(program, frame, count);
    QCOMPARE(count.series, 1);
    showAt(window, {900, 640});
    window.resize(1000, 700);
    QCoreApplication::processEvents();
    window.grab();
    for (int i = 1; i <= 5; ++i) {
        child<QCheckBox>(window, u"Check%1"_s.arg(i))->click();
    }
    child<QPushButton>(window, u"Command1"_s)->click();
    press(window, plotOf(window, 20).x(20));
    QCOMPARE(frame.popups.size(), std::size_t{1});
    GraphOptions options = defaultGraphOptions();
    options.colours[0] = 0x102030;
    options.dayIndexPosition = 3;
    window.applyGraphOptions(options);
    QCOMPARE(count.series, 1);

    options.graphDaysAdjust = 7;
    window.applyGraphOptions(options);
    QCOMPARE(count.series, 2);
    QVERIFY(count.busy);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr); // busy no longer
}

void TestFGrphMed::outlivesTheSystem() {
    Fixture fixture;
    const Fixture untouched({8116, 20411, 61}, 10);
    const Drawing before = picture(fixture.window)->drawing();
    fixture.program.state.systemMembers[1].birthDate += 5;
    fixture.program.state.systemMembers.pop_back();
    fixture.program.state.systemCount = 2;
    fixture.program.biorhythm.calculationDate += 10;
    child<QPushButton>(fixture.window, u"Command1"_s)->click();
    QCOMPARE(picture(fixture.window)->drawing(), before);

    fixture.program.state = {};
    resetDisplayOptions(fixture.program.biorhythm);
    GraphOptions wider = defaultGraphOptions();
    wider.graphDaysAdjust = 10;
    fixture.window.applyGraphOptions(wider);
    QCOMPARE(picture(fixture.window)->drawing(), picture(untouched.window)->drawing());
    QCOMPARE(text(fixture.window, u"Text1"_s), u"lunedì 15 marzo 2004"_s);
    press(fixture.window, plotOf(fixture.window, 30).x(30));
    QCOMPARE(fixture.frame.popups.at(0).day, u"Giorno 15/03/2004"_s);
}

} // namespace quor::test
