#include "views/graph/TestFGrph.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "toolkit/PictureBox.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/GraphPlot.h"

#include "support/Hermetic.h"
#include "support/RecordingFrame.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QString& generalHelp() {
    static const QString text =
        u"--> La finestra grafico mostra l'andamento delle curve scelte in un arco di giorni attorno a quello utilizzato nella data di calcolo.\n\n--> Cliccando col tasto destro sul grafico apparirà un piccolo menu con le statistiche parziali del punto prescelto.\n\n--> Si possono selezionare le curve desiderate nel grafico nel riquadro in basso a destra. Sarà necessario premere il tasto Aggiorna perchè i cambiamenti vengano effettuati."_s;
    return text;
}

/// The graph of one person, shown at a fixed size.
class Fixture {
  public:
    explicit Fixture(std::int16_t graphDaysAdjust = 0, QDate birth = {1981, 12, 25},
                     QDate calculation = {2004, 3, 15}) {
        resetToStartUp(program);
        Biorhythm& biorhythm = program.biorhythm;
        biorhythm.name = u"Maria"_s;
        biorhythm.birthDate = toDateValue(birth);
        biorhythm.calculationDate = toDateValue(calculation);
        biorhythm.graphDaysAdjust = graphDaysAdjust;
        biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
        open();
    }

    void open() {
        window = std::make_unique<FGrph>(program, frame);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->resize(900, 640);
        window->show();
        QCoreApplication::processEvents();
    }

    template<typename T> [[nodiscard]] T* child(const QString& name) const {
        return window->findChild<T*>(name);
    }
    [[nodiscard]] PictureBox* picture() const { return child<PictureBox>(u"Picture1"_s); }
    [[nodiscard]] QString text(const QString& name) const { return child<QLineEdit>(name)->text(); }
    [[nodiscard]] QString helpText() const {
        return child<QPlainTextEdit>(u"Text4"_s)->toPlainText();
    }
    [[nodiscard]] GraphPlot plot() const {
        return layOutGraph(picture()->size(), daysAround(program.biorhythm.graphDaysAdjust));
    }
    void press(int x, Qt::MouseButton button = Qt::RightButton) const {
        QTest::mousePress(picture(), button, {}, {x, picture()->height() / 3});
    }

    Program program;
    RecordingFrame frame;
    std::unique_ptr<FGrph> window;
};

/// The curves of a drawing, by their colour.
std::vector<Curve> curves(const Drawing& drawing, Colour colour) {
    std::vector<Curve> found;
    for (const Primitive& primitive : drawing.primitives) {
        if (const auto* curve = std::get_if<Curve>(&primitive);
            curve != nullptr && curve->stroke.colour == colour) {
            found.push_back(*curve);
        }
    }
    return found;
}

template<typename Kind> int count(const Drawing& drawing) {
    return static_cast<int>(
        std::count_if(drawing.primitives.begin(), drawing.primitives.end(),
                      [](const Primitive& p) { return std::holds_alternative<Kind>(p); }));
}

} // namespace

void TestFGrph::showsTheRecord() {
    const Fixture fixture;
    QCOMPARE(fixture.text(u"Text1"_s), u"lunedì 15 marzo 2004"_s);
    QCOMPARE(fixture.text(u"Text2"_s), u"martedì 24 febbraio 2004"_s);
    QCOMPARE(fixture.text(u"Text3"_s), u"domenica 4 aprile 2004"_s);
    for (int i = 1; i <= 5; ++i) {
        QVERIFY(fixture.child<QCheckBox>(u"Check%1"_s.arg(i))->isChecked());
    }
    QCOMPARE(fixture.helpText(), generalHelp());
    QCOMPARE(fixture.window->property("helpTopic").toString(), u"leggere-grafico.html"_s); // F1

    const Drawing& drawing = fixture.picture()->drawing();
    QCOMPARE(count<FilledBox>(drawing), 40);
    QCOMPARE(count<Text>(drawing), 40);
    QCOMPARE(count<Line>(drawing), 1 + 41 + 3);
    QCOMPARE(curves(drawing, 0x00FFFF).size(), std::size_t{1});
    const auto physical = curves(drawing, 0xFF0000);
    QCOMPARE(physical.size(), std::size_t{3});
    // The middle of the unshifted curve is the calculation date, day 8116 of this life.
    const GraphPlot plot = fixture.plot();
    QCOMPARE(physical[1].points[20],
             QPoint(plot.x(20), plot.y(cycleValue(8116, Period::physical))));
}

void TestFGrph::checkBoxesActOnAggiorna() {
    const Fixture fixture;
    const Drawing before = fixture.picture()->drawing();
    for (int i = 1; i <= 5; ++i) {
        fixture.child<QCheckBox>(u"Check%1"_s.arg(i))->click();
    }
    QCOMPARE(fixture.picture()->drawing(), before); // nothing is redrawn yet
    QCOMPARE(fixture.program.biorhythm.showFlags(), (ShowFlags{true, true, true, true, true}));

    fixture.child<QPushButton>(u"Command1"_s)->click();
    const Drawing& after = fixture.picture()->drawing();
    QCOMPARE(count<FilledBox>(after), 0);
    QCOMPARE(count<Curve>(after), 0);
    QCOMPARE(count<Line>(after), 1 + 41 + 3);
    QCOMPARE(count<Text>(after), 40);
    QCOMPARE(fixture.helpText(), generalHelp());
}

void TestFGrph::checkBoxTexts_data() {
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("help");
    QTest::newRow("1")
        << u"Check1"_s << u"Fisico"_s << u"Abilita/Disabilita il disegno dello stato fisico"_s
        << u"--> La curva fisica rappresenta lo stato fisico della persona in esame."_s;
    QTest::newRow("2")
        << u"Check2"_s << u"Emotivo"_s << u"Abilita/Disabilita il disegno dello stato emotivo"_s
        << u"--> La curva emotiva rappresenta lo stato emotivo della persona in esame."_s;
    QTest::newRow("3")
        << u"Check3"_s << u"Intellettivo"_s
        << u"Abilita/Disabilita il disegno dello stato intellettivo"_s
        << u"--> La curva intellettiva rappresenta lo stato intellettivo della persona in esame."_s;
    QTest::newRow("4")
        << u"Check4"_s << u"Media Energetica"_s
        << u"Abilita/Disabilita il disegno della media energetica"_s
        << u"--> La curva media traccia una media matematica delle altre tre curve."_s;
    QTest::newRow("5")
        << u"Check5"_s << u"Enchance"_s << QString()
        << u"--> La modalità enchance visualizza a barre colorate lo stato del giorno. Il colore tende allo stato prevalente quel giorno, quindi una barra molto chiara fa presupporre un buono stato bioritmico."_s;
}

void TestFGrph::checkBoxTexts() {
    QFETCH(QString, check);
    QFETCH(QString, caption);
    QFETCH(QString, toolTip);
    QFETCH(QString, help);
    const Fixture fixture;
    auto* box = fixture.child<QCheckBox>(check);
    QCOMPARE(box->text(), caption);
    QCOMPARE(box->toolTip(), toolTip);
    box->click();
    QCOMPARE(
        fixture.helpText(),
        help +
            u"\n\n--> Perchè i cambiamenti diventino definitivi nel grafico occorre premere il tasto Aggiorna."_s);
}

void TestFGrph::checkBoxesWearTheirColours() {
    const Fixture fixture;
    fixture.window->applyGraphOptions({.colours = {0x102030, 0x0000FF, 0x00FF00, 0xFFFFFF},
                                       .graphDaysAdjust = 0,
                                       .dayIndexPosition = 2});
    const auto background = [&](int i) {
        return fixture.child<QCheckBox>(u"Check%1"_s.arg(i))->palette().color(QPalette::Window);
    };
    QCOMPARE(background(1), QColor(0x30, 0x20, 0x10));
    QCOMPARE(background(2), QColor(Qt::red));
    QCOMPARE(background(3), QColor(Qt::green));
    QCOMPARE(background(4), QColor(Qt::white));
    const QImage image = fixture.child<QCheckBox>(u"Check2"_s)->grab().toImage();
    QCOMPARE(image.pixelColor(image.width() - 2, image.height() / 2), QColor(Qt::red));
}

void TestFGrph::popupOfADay() {
    Fixture fixture;
    fixture.press(fixture.plot().x(20));
    QCOMPARE(fixture.frame.popups.size(), std::size_t{1});
    const DayPopup& popup = fixture.frame.popups[0];
    QCOMPARE(popup.day, u"Giorno 15/03/2004"_s);
    QCOMPARE(popup.physical, u"Fisico: -7"_s);
    QCOMPARE(popup.emotional, u"Emotivo: -8"_s);
    QCOMPARE(popup.intellectual, u"Intellettivo: -4"_s);
    QCOMPARE(popup.mean, u"Media: -6"_s);
}

void TestFGrph::popupEnds() {
    Fixture fixture;
    const GraphPlot plot = fixture.plot();
    fixture.press(plot.plotLeft);
    fixture.press(plot.right());
    fixture.press(2);
    QVERIFY(fixture.frame.popups.empty());
    fixture.press(plot.plotLeft + 1);
    fixture.press(plot.right() - 1);
    QCOMPARE(fixture.frame.popups.size(), std::size_t{2});
    QCOMPARE(fixture.frame.popups[0].day, u"Giorno 24/02/2004"_s);
    QCOMPARE(fixture.frame.popups[1].day, u"Giorno 04/04/2004"_s);
}

void TestFGrph::popupByKeyboard() {
    const Fixture fixture;
    QTest::keyClick(fixture.picture(), Qt::Key_F10);
    QVERIFY(fixture.frame.popups.empty());
    QTest::keyClick(fixture.picture(), Qt::Key_F10, Qt::ShiftModifier);
    const QPoint centre = fixture.picture()->rect().center();
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, centre,
                              fixture.picture()->mapToGlobal(centre));
    QApplication::sendEvent(fixture.picture(), &byMouse); // comes with the button, and is no key
    QCOMPARE(fixture.frame.popups.size(), std::size_t{1});
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, centre,
                              fixture.picture()->mapToGlobal(centre));
    QApplication::sendEvent(fixture.picture(), &menuKey);
    QCOMPARE(fixture.frame.popups.size(), std::size_t{2});
    for (const DayPopup& popup : fixture.frame.popups) {
        QCOMPARE(popup.day, u"Giorno 15/03/2004"_s);
        QCOMPARE(popup.physical, u"Fisico: -7"_s);
        QCOMPARE(popup.mean, u"Media: -6"_s);
    }
}

void TestFGrph::popupByKeyboardOnASpanWithoutWidth() {
    const Fixture fixture(3000);
    QCOMPARE(fixture.plot().dayWidth, 0); // no day can be pointed at
    QTest::keyClick(fixture.picture(), Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(fixture.frame.popups.size(), std::size_t{1});
    QCOMPARE(fixture.frame.popups.front().day, u"Giorno 15/03/2004"_s);
    QCOMPARE(fixture.frame.popups.front().physical, u"Fisico: -7"_s);
}

void TestFGrph::toldInWords() {
    const Fixture fixture;
    fixture.window->setWindowTitle(u"Grafico di Maria"_s);
    const QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(fixture.picture());
    QCOMPARE(picture->role(), QAccessible::Chart);
    QCOMPARE(picture->text(QAccessible::Name), u"Finestra del grafico"_s);
    QCOMPARE(picture->text(QAccessible::Description),
             u"Grafico di Maria. Data di calcolo: lunedì 15 marzo 2004. Fisico: -7, Emotivo: -8, "
             "Intellettivo: -4, Media: -6. 20 giorni prima e 20 dopo, da martedì 24 febbraio 2004 "
             "a domenica 4 aprile 2004. Disegnati: fisico, emotivo, intellettivo, media, "
             "enchance."_s);
}

/// With what changes the picture, and not before.
void TestFGrph::changesChangeTheWords() {
    const Fixture fixture;
    const auto description = [&fixture] { return fixture.picture()->accessibleDescription(); };
    fixture.child<QCheckBox>(u"Check2"_s)->click();
    QVERIFY(description().contains(u"emotivo,"_s));
    fixture.child<QPushButton>(u"Command1"_s)->click();
    QVERIFY(description().endsWith(u"Disegnati: fisico, intellettivo, media, enchance."_s));

    GraphOptions options = graphOptions(fixture.program.biorhythm);
    options.graphDaysAdjust = -19;
    fixture.window->applyGraphOptions(options);
    QVERIFY(description().contains(
        u"1 giorno prima e 1 dopo, da domenica 14 marzo 2004 a martedì 16 marzo 2004."_s));
    fixture.window->setWindowTitle(u"Grafico di Anna"_s);
    QVERIFY(description().startsWith(u"Grafico di Anna. "_s));
}

/// By a line along the edge, and only while the picture has the keyboard.
void TestFGrph::focusIsShown() {
    const Fixture fixture;
    fixture.window->activateWindow();
    const auto corner = [&fixture] {
        return fixture.picture()->grab().toImage().pixelColor(0, fixture.picture()->height() / 2);
    };
    QCOMPARE(corner(), QColor(Qt::white));
    const QImage without = fixture.picture()->grab().toImage();
    fixture.picture()->setFocus(Qt::TabFocusReason);
    QCOMPARE(corner(), fixture.picture()->palette().color(QPalette::Highlight));
    const QImage with = fixture.picture()->grab().toImage();
    const QRect inside = with.rect().adjusted(1, 1, -1, -1);
    QCOMPARE(with.copy(inside), without.copy(inside));
    // A click leaves the keyboard where it is.
    fixture.child<QCheckBox>(u"Check1"_s)->setFocus();
    QTest::mouseClick(fixture.picture(), Qt::LeftButton);
    QVERIFY(!fixture.picture()->hasFocus());
}

void TestFGrph::otherButtonsDoNothing() {
    const Fixture fixture;
    fixture.press(fixture.plot().x(20), Qt::LeftButton);
    fixture.press(fixture.plot().x(20), Qt::MiddleButton);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFGrph::theStartDayStaysFixed() {
    Fixture fixture;
    const GraphOptions wider{
        .colours = defaultGraphOptions().colours, .graphDaysAdjust = 10, .dayIndexPosition = 2};
    fixture.window->applyGraphOptions(wider);
    setGraphOptions(fixture.program.biorhythm, wider); // as the dialog has done by then

    // Dates and popup follow the new span ...
    QCOMPARE(fixture.text(u"Text1"_s), u"lunedì 15 marzo 2004"_s);
    QCOMPARE(fixture.text(u"Text2"_s), u"sabato 14 febbraio 2004"_s);
    QCOMPARE(fixture.text(u"Text3"_s), u"mercoledì 14 aprile 2004"_s);
    const GraphPlot plot = fixture.plot();
    QCOMPARE(plot.daysAround, 30);
    fixture.press(plot.x(30));
    QCOMPARE(fixture.frame.popups.at(0).day, u"Giorno 15/03/2004"_s);
    // ... while curves and values still count from the first day of the old one.
    QCOMPARE(fixture.frame.popups.at(0).physical,
             u"Fisico: "_s + QString::number(toTenScale(cycleValue(8096 + 30, Period::physical))));
    QCOMPARE(curves(fixture.picture()->drawing(), 0xFF0000)[1].points[0],
             QPoint(plot.x(0), plot.y(cycleValue(8096, Period::physical))));
}

void TestFGrph::optionsComeThroughTheDialog() {
    const Fixture fixture;
    fixture.window->SetOptions();
    auto* dialog = fixture.window->findChild<FGrOpt*>();
    QVERIFY(dialog != nullptr && dialog->isVisible());
    dialog->findChild<QLineEdit*>(u"Text1"_s)->setText(u"5"_s);
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
    QCOMPARE(fixture.text(u"Text2"_s), u"mercoledì 10 marzo 2004"_s);
    QCOMPARE(count<FilledBox>(fixture.picture()->drawing()), 10);
    QVERIFY(fixture.program.state.modified);

    // The next dialog starts from the window's values.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    fixture.window->SetOptions();
    QCOMPARE(fixture.window->findChild<FGrOpt*>()->findChild<QLineEdit*>(u"Text1"_s)->text(),
             u"5"_s);
}

/// Other days under the same curves: the window, the popup and the description say so.
void TestFGrph::aChangedSpanSaysWhereItsCurvesBegin() {
    const Fixture fixture;
    const auto* note = fixture.child<QWidget>(u"Note"_s);
    const auto description = [&fixture] { return fixture.picture()->accessibleDescription(); };
    const QString text =
        u"Le curve cominciano ancora dal giorno con cui sono state aperte (24/02/2004)."_s;
    const auto change = [&fixture](std::int16_t adjust, std::uint8_t position) {
        GraphOptions options = graphOptions(fixture.program.biorhythm);
        options.graphDaysAdjust = adjust;
        options.dayIndexPosition = position;
        fixture.window->applyGraphOptions(options);
    };
    change(0, 3);
    QVERIFY(!note->isVisible());
    QVERIFY(!description().contains(text));
    fixture.press(100);
    QCOMPARE(fixture.frame.popups.back().note, QString());

    change(10, 2);
    QVERIFY(note->isVisible());
    QCOMPARE(fixture.child<QLabel>(u"Label1"_s)->text(), text);
    QVERIFY(description().endsWith(text));
    QVERIFY(description().contains(
        u"2004. Fisico: -7, Emotivo: -8, Intellettivo: -4, Media: -6. 30"_s));
    fixture.press(100);
    QCOMPARE(fixture.frame.popups.back().note, text);

    change(0, 2);
    QVERIFY(!note->isVisible());
}

void TestFGrph::reopensWithTheNewSpan_data() {
    QTest::addColumn<bool>("system");
    QTest::newRow("person") << false;
    QTest::newRow("member of a system, whose record keeps its span") << true;
}

/// As a graph that is opened with that span, where the old one stands.
void TestFGrph::reopensWithTheNewSpan() {
    QFETCH(bool, system);
    Fixture fixture;
    fixture.program.state.systemOpen = system;
    fixture.open();
    fixture.window->resize(820, 600);
    fixture.child<QCheckBox>(u"Check2"_s)->setChecked(false);
    fixture.window->SetOptions();
    auto* dialog = fixture.window->findChild<FGrOpt*>();
    dialog->findChild<QLineEdit*>(u"Text1"_s)->setText(u"30"_s);
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
    QCOMPARE(fixture.program.biorhythm.graphDaysAdjust, system ? 0 : 10);
    const QRect place = fixture.window->geometry();
    fixture.child<QPushButton>(u"Command2"_s)->click();
    QCoreApplication::processEvents();
    QVERIFY(!fixture.child<QWidget>(u"Note"_s)->isVisible());
    QCOMPARE(fixture.window->geometry(), place);
    QVERIFY(!fixture.child<QCheckBox>(u"Check2"_s)->isChecked());

    Fixture fresh(10);
    fresh.window->resize(place.size());
    fresh.child<QCheckBox>(u"Check2"_s)->click();
    fresh.child<QPushButton>(u"Command1"_s)->click();
    QCoreApplication::processEvents();
    QCOMPARE(fixture.picture()->drawing(), fresh.picture()->drawing());
    QCOMPARE(fixture.text(u"Text2"_s), fresh.text(u"Text2"_s));
    fixture.press(300);
    fresh.press(300);
    QCOMPARE(fixture.frame.popups.back().physical, fresh.frame.popups.back().physical);
}

void TestFGrph::reopensOnTheDateOfItsData_data() {
    QTest::addColumn<bool>("stillOpen");
    QTest::newRow("the system's date has moved") << true;
    QTest::newRow("the system is closed") << false;
}

void TestFGrph::reopensOnTheDateOfItsData() {
    QFETCH(bool, stillOpen);
    Fixture fixture;
    fixture.program.state.systemOpen = true;
    fixture.open();
    GraphOptions options = graphOptions(fixture.program.biorhythm);
    options.graphDaysAdjust = 10;
    fixture.window->applyGraphOptions(options);
    fixture.program.state.systemOpen = stillOpen;
    fixture.program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 20));
    fixture.child<QPushButton>(u"Command2"_s)->click();
    QCOMPARE(fixture.text(u"Text1"_s),
             stillOpen ? u"sabato 20 marzo 2004"_s : u"lunedì 15 marzo 2004"_s);
    const Fixture fresh(10, {1981, 12, 25}, {2004, 3, stillOpen ? 20 : 15});
    QCOMPARE(fixture.picture()->accessibleDescription(), fresh.picture()->accessibleDescription());
}

void TestFGrph::damagedSpan() {
    // A file may hold a span of less than a day: one day is shown, with that day's values.
    Fixture fixture(-25);
    QCOMPARE(fixture.text(u"Text2"_s), u"domenica 14 marzo 2004"_s);
    QCOMPARE(count<FilledBox>(fixture.picture()->drawing()), 2);
    fixture.press(fixture.plot().x(1));
    QCOMPARE(fixture.frame.popups.at(0).physical, u"Fisico: -7"_s);
}

void TestFGrph::aSpanWiderThanThePicture() {
    const Fixture fixture(32747);
    QCOMPARE(fixture.plot().dayWidth, 0);
    for (int x = 0; x < fixture.picture()->width(); ++x) {
        fixture.press(x);
    }
    QVERIFY(fixture.frame.popups.empty());
    const QImage image = fixture.picture()->grab().toImage();
    QCOMPARE(image.pixelColor(image.width() - 1, image.height() - 1), QColor(Qt::white));
}

void TestFGrph::negativeDayCounts() {
    Fixture fixture(0, {2004, 3, 15}, {2004, 3, 15});
    fixture.press(fixture.plot().x(15));
    const DayPopup& popup = fixture.frame.popups.at(0);
    QCOMPARE(popup.day, u"Giorno 10/03/2004"_s);
    QCOMPARE(popup.physical, u"Fisico: -10"_s);  // sin(-5 · 2π/23) = -0.979
    QCOMPARE(popup.emotional, u"Emotivo: -9"_s); // sin(-5 · 2π/28) = -0.901
    QCOMPARE(popup.intellectual, u"Intellettivo: -8"_s);
    QCOMPARE(popup.mean, u"Media: -9"_s);
}

/// As tiled in a small frame, which asks no window how small it can be.
void TestFGrph::squeezedItKeepsTheTextReadable() {
    const Fixture fixture;
    QMdiArea area;
    area.resize(800, 700);
    area.show();
    QMdiSubWindow* window = area.addSubWindow(fixture.window.get());
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->show();
    auto* text = fixture.child<QPlainTextEdit>(u"Text4"_s);
    const int least = text->minimumSizeHint().width();
    QVERIFY(least > 20);
    for (const int width : {400, 200, 92, 50, 20, 1}) {
        window->setGeometry(0, 0, width, 600);
        QCoreApplication::processEvents();
        QVERIFY2(text->width() >= least, qPrintable(QString::number(width)));
    }
    window->setWidget(nullptr);
    fixture.window->setParent(nullptr);
}

} // namespace quor::test
