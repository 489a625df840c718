#include "views/analysis/TestFComp.h"

#include "toolkit/PictureBox.h"
#include "toolkit/ShowHelp.h"
#include "views/analysis/CompatibilityDrawing.h"
#include "views/analysis/FComp.h"

#include "support/ScriptedDialogs.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QDate calculationDay(2004, 3, 15);

/// A system whose members were born that many days before the calculation date.
Program systemOf(const std::vector<std::int32_t>& dayCounts) {
    static const QStringList names{u"Maria"_s, u"Anna & Lia"_s, u"Zoe"_s, u"Bruno"_s};
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = toDateValue(calculationDay);
    program.state.systemOpen = true;
    for (const std::int32_t count : dayCounts) {
        const auto number = static_cast<qsizetype>(program.state.systemMembers.size());
        program.state.systemMembers.push_back(
            {.name = names.at(number), .birthDate = toDateValue(calculationDay) - count});
    }
    program.state.systemCount = static_cast<std::int16_t>(program.state.systemMembers.size());
    return program;
}

/// The window of a system, shown at a fixed size.
class Fixture {
  public:
    explicit Fixture(const std::vector<std::int32_t>& dayCounts)
        : Fixture(systemOf(dayCounts)) {}

    explicit Fixture(const Program& program)
        : window(std::make_unique<FComp>(program)) {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->resize(800, 600);
        window->show();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QComboBox* list(int number) const {
        return window->findChild<QComboBox*>(u"Combo%1"_s.arg(number));
    }
    [[nodiscard]] PictureBox* panel(int number) const {
        return window->findChild<PictureBox*>(u"Picture1_%1"_s.arg(number));
    }
    void choose(int number, int member) const { list(number)->setCurrentIndex(member); }
    [[nodiscard]] std::vector<Drawing> drawings() const {
        std::vector<Drawing> all;
        for (int i = 0; i < 4; ++i) {
            all.push_back(panel(i)->drawing());
        }
        return all;
    }
    /// The texts on the panels.
    [[nodiscard]] QStringList texts() const {
        QStringList all;
        for (const Drawing& drawing : drawings()) {
            for (const Primitive& primitive : drawing.primitives) {
                if (const auto* text = std::get_if<Text>(&primitive)) {
                    all << text->text;
                }
            }
        }
        return all;
    }
    /// Nothing is drawn on any panel but its ground, which covers it.
    [[nodiscard]] bool isEmpty() const {
        bool empty = true;
        for (int i = 0; i < 4; ++i) {
            empty = empty && panel(i)->drawing() == drawEmptyPanel(panel(i)->size());
        }
        return empty;
    }

    std::unique_ptr<FComp> window;
};

/// The four lines with these numbers, in the locale of the run.
QStringList lines(double overall, double physical, double emotional, double intellectual) {
    const auto line = [](const QString& subject, double percent) {
        return u"%1: %2%"_s.arg(subject, QLocale().toString(percent, 'f', 2));
    };
    return {line(u"Compatibilità"_s, overall), line(u"Compatibilità fisica"_s, physical),
            line(u"Compatibilità emotiva"_s, emotional),
            line(u"Compatibilità intellettiva"_s, intellectual)};
}

QStringList items(const QComboBox* list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) {
        texts << list->itemText(i);
    }
    return texts;
}

} // namespace

void TestFComp::titleAndNames() {
    const Fixture fixture({8116, 8130});
    QCOMPARE(fixture.window->objectName(), u"FComp"_s);
    QCOMPARE(fixture.window->windowTitle(), u"Compatibilità bioritmica"_s);
    const auto* frame = fixture.window->findChild<QGroupBox*>(u"Frame1"_s);
    QCOMPARE(frame->title(), u"Compatibilità bioritmica"_s);
    QCOMPARE(fixture.list(1)->parentWidget(), frame);
    QCOMPARE(fixture.list(2)->parentWidget(), frame);
}

void TestFComp::listsInMemberOrder() {
    const Fixture fixture({8116, 8130, 20});
    const QStringList names{u"Maria"_s, u"Anna & Lia"_s, u"Zoe"_s};
    for (const int number : {1, 2}) {
        QCOMPARE(items(fixture.list(number)), names);
        QCOMPARE(fixture.list(number)->currentIndex(), -1);
        QVERIFY(!fixture.list(number)->isEditable());
    }
    QVERIFY(fixture.isEmpty());
}

void TestFComp::onlyTheMembersThatCount() {
    Program program = systemOf({8116, 8130, 20});
    program.state.systemCount = 1; // what is behind it is left over
    QCOMPARE(items(Fixture(program).list(1)), QStringList{u"Maria"_s});
    program.state.systemCount = 0;
    const Fixture none(program);
    QCOMPARE(none.list(2)->count(), 0);
    QTest::keyClick(none.list(2), Qt::Key_Down);
    QVERIFY(none.isEmpty());
}

void TestFComp::oneChosenDrawsNothing() {
    for (const int number : {1, 2}) {
        const Fixture fixture({8116, 8130});
        fixture.choose(number, 0);
        QVERIFY(fixture.isEmpty());
        fixture.choose(number, 1);
        QVERIFY(fixture.isEmpty());
        // Taken back, as no user can, the list counts as it did before.
        fixture.choose(3 - number, -1);
        QVERIFY(fixture.isEmpty());
        QCOMPARE(fixture.panel(0)->accessibleDescription(),
                 u"Nessun confronto: scegliere due bioritmi"_s);
    }
}

void TestFComp::bothChosenWriteTheTexts() {
    const Fixture fixture({8116, 8130});
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
    if (datesAreItalian()) {
        QCOMPARE(fixture.texts().front(), u"Compatibilità: 12,30%"_s);
    }
    // The first curve of each panel is the first person's, and begins on the calculation date.
    const std::array items{StateItem::mean, StateItem::physical, StateItem::emotional,
                           StateItem::intellectual};
    for (int i = 0; i < 4; ++i) {
        const PictureBox* panel = fixture.panel(i);
        const auto colours = defaultGraphOptions().colours;
        const StateItem item = items.at(static_cast<std::size_t>(i));
        QCOMPARE(panel->drawing(),
                 drawCompatibilityPanel({.item = item,
                                         .firstDayCount = 8116,
                                         .secondDayCount = 8130,
                                         .firstColour = colours.at(static_cast<std::size_t>(item)),
                                         .text = fixture.texts().at(i)},
                                        panel->size(),
                                        layOutCompatibility(panel->size(), panel->textHeight())));
    }
}

void TestFComp::sameMemberTwice() {
    const Fixture fixture({8116, 8130});
    fixture.choose(2, 1);
    fixture.choose(1, 1);
    QCOMPARE(fixture.texts(), lines(100, 100, 100, 100));
}

void TestFComp::choosingAgainComparesAgain() {
    const Fixture fixture({8116, 8130, 8139});
    fixture.choose(1, 0);
    fixture.choose(2, 2); // a whole physical period
    QCOMPARE(fixture.texts().at(1), lines(0, 100, 0, 0).at(1));
    fixture.choose(2, 1);
    QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
    const std::vector<Drawing> drawn = fixture.drawings();
    fixture.choose(1, 1);
    fixture.choose(2, 0);
    QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
    QVERIFY(fixture.drawings() != drawn); // the colours have changed places
}

void TestFComp::dayCountsWithoutACommonBit() {
    const Fixture fixture({8, 16, 24, 0});
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    QVERIFY(fixture.isEmpty());
    fixture.choose(2, 2);
    const std::vector<Drawing> drawn = fixture.drawings();
    QCOMPARE(fixture.texts().size(), 4);
    fixture.choose(2, 1); // 8 and 16 again
    QCOMPARE(fixture.drawings(), drawn);
    // The choice counts all the same: 24 and 16 are compared.
    fixture.choose(1, 2);
    QVERIFY(fixture.drawings() != drawn);
    // One who is born on the calculation date has no bit at all, not even in common with itself.
    const std::vector<Drawing> drawnAgain = fixture.drawings();
    fixture.choose(1, 3);
    fixture.choose(2, 3);
    QCOMPARE(fixture.drawings(), drawnAgain);
}

void TestFComp::differenceTooLong() {
    ScriptedDialogs dialogs;
    const Fixture fixture({8191, 8191 + 32767, 8191 + 32768});
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    QCOMPARE(fixture.texts().at(2), lines(0, 0, 50, 0).at(2));
    const std::vector<Drawing> drawn = fixture.drawings();
    const QString description = fixture.panel(0)->accessibleDescription();
    dialogs.expectBox(
        u"Errore"_s,
        u"Overflow\nTra le due date di nascita passano più di 32767 giorni (quasi 90 anni). "
        "Scegliere due persone nate meno lontano l'una dall'altra."_s);
    fixture.choose(2, 2);
    QVERIFY(dialogs.finished());
    QVERIFY(!fixture.window->findChild<QLabel*>(u"Label3"_s)->text().isEmpty());
    QCOMPARE(fixture.window->findChild<QLabel*>(u"Second0"_s)->text(), u"Anna & Lia"_s);
    QCOMPARE(fixture.drawings(), drawn);
    QCOMPARE(fixture.panel(0)->accessibleDescription(), description);
    fixture.choose(1, 2);
    QCOMPARE(fixture.texts(), lines(100, 100, 100, 100));
}

/// Also while the lists name others, which a line says.
void TestFComp::namesWhomThePanelsShow() {
    const Fixture fixture({8, 16, 24});
    const auto names = [&fixture] {
        QStringList all;
        for (int panel = 0; panel < 4; ++panel) {
            for (const QString& person : {u"First%1"_s, u"Second%1"_s}) {
                all << fixture.window->findChild<QLabel*>(person.arg(panel))->text();
            }
        }
        all.removeDuplicates();
        return all;
    };
    const auto* note = fixture.window->findChild<QLabel*>(u"Label3"_s);
    fixture.choose(1, 0);
    QCOMPARE(note->text(), QString());
    QCOMPARE(names(), QStringList(QString()));
    fixture.choose(2, 1); // no bit in common
    QCOMPARE(note->text(), u"Per le due persone scelte non c'è immagine."_s);

    fixture.choose(2, 2);
    const QStringList shown{u"Maria"_s, u"Zoe"_s};
    QCOMPARE(names(), shown);
    QCOMPARE(note->text(), QString());
    const QString others =
        u"Le immagini non sono delle due persone scelte, ma di quelle indicate sopra."_s;
    fixture.choose(2, 1);
    QCOMPARE(names(), shown);
    QCOMPARE(note->text(), others);
    QCOMPARE(fixture.list(2)->accessibleDescription(), others);
    fixture.choose(2, 2);
    QCOMPARE(note->text(), QString());

    fixture.choose(1, 2);
    QCOMPARE(names(), QStringList(u"Zoe"_s));
}

void TestFComp::theNamesWearTheColours() {
    Program program = systemOf({8116, 8130});
    program.biorhythm.curveColours = {0x102050, 0x405060, 0x708010, 0xA0B0C0, 0};
    const Fixture fixture(program);
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    const std::array<std::array<QRgb, 2>, 4> expected{{{0xFFC0B0A0, 0xFF8EB0A0},
                                                       {0xFF502010, 0xFF1E2010},
                                                       {0xFF605040, 0xFF2E5040},
                                                       {0xFF108070, 0xFFDE7F70}}};
    for (std::size_t panel = 0; panel < expected.size(); ++panel) {
        const auto pixel = [&](const QString& person) {
            auto* label = fixture.window->findChild<QLabel*>(person.arg(panel));
            return label->grab().toImage().pixel(1, 1);
        };
        QCOMPARE(pixel(u"First%1"_s), expected.at(panel).at(0));
        QCOMPARE(pixel(u"Second%1"_s), expected.at(panel).at(1));
    }
}

void TestFComp::colours() {
    Program program = systemOf({8116, 8130});
    program.biorhythm.curveColours = {0x102050, 0x405060, 0x708010, 0xA0B0C0, 0};
    const Fixture fixture(program);
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    const std::array<std::array<Colour, 2>, 4> expected{
        {{0xA0B0C0, 0xA0B08E}, {0x102050, 0x10201E}, {0x405060, 0x40502E}, {0x708010, 0x707FDE}}};
    for (int i = 0; i < 4; ++i) {
        std::vector<Colour> found;
        for (const Primitive& primitive : fixture.panel(i)->drawing().primitives) {
            if (const auto* curve = std::get_if<Curve>(&primitive)) {
                found.push_back(curve->stroke.colour);
            }
        }
        const auto [first, second] = expected.at(static_cast<std::size_t>(i));
        QCOMPARE(found, (std::vector<Colour>{first, first, first, second, second, second}));
        // And on the screen. The grid lies over the curves, but not on every pixel.
        const QImage image = fixture.panel(i)->grab().toImage();
        QSet<QRgb> pixels;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                pixels << (image.pixel(x, y) & 0xFFFFFF);
            }
        }
        QVERIFY(pixels.contains(0x202020));
        QVERIFY(pixels.contains(0x969696));
        QVERIFY(pixels.contains(0xFFFFFF));
        for (const Colour colour : {first, second}) {
            const auto bits = static_cast<QRgb>(colour);
            QVERIFY(pixels.contains((bits & 0xFF) << 16 | (bits & 0xFF00) | bits >> 16));
        }
    }
}

void TestFComp::resizingDrawsAnew() {
    const Fixture fixture({8116, 8130});
    for (const QSize size : {QSize(1200, 900), QSize(700, 500)}) {
        fixture.window->resize(size);
        QCoreApplication::processEvents();
        QVERIFY(fixture.isEmpty());
    }
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    for (const QSize size : {QSize(1200, 900), QSize(700, 500), QSize(1, 1)}) {
        fixture.window->resize(size);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
        for (int i = 0; i < 4; ++i) {
            const PictureBox* panel = fixture.panel(i);
            const CompatibilityPlot plot = layOutCompatibility(panel->size(), panel->textHeight());
            QVERIFY(plot.amplitude > panel->textHeight());
            const auto& last = std::get<OutlineBox>(panel->drawing().primitives[49]);
            QCOMPARE(last.area,
                     QRect(QPoint(plot.x0, plot.top()), QPoint(plot.right(), plot.bottom())));
            // Two by two, all of one size, give or take a pixel, and every text inside.
            QVERIFY(std::abs(panel->width() - fixture.panel(0)->width()) <= 1);
            QVERIFY(std::abs(panel->height() - fixture.panel(0)->height()) <= 1);
            QCOMPARE(panel->x(), fixture.panel(i % 2)->x());
            QCOMPARE(panel->y(), fixture.panel(i - i % 2)->y());
            QVERIFY(plot.x0 + panel->textWidth(fixture.texts().at(i), true) <= panel->width());
        }
    }
}

void TestFComp::resizingKeepsWhatIsShown() {
    const Fixture fixture({8, 16, 24});
    fixture.choose(1, 0);
    fixture.choose(2, 2);
    const std::vector<Drawing> drawn = fixture.drawings();
    const QSize size = fixture.window->size();
    fixture.choose(2, 1); // not compared with 8 days
    fixture.window->resize(1000, 800);
    QCoreApplication::processEvents();
    QVERIFY(fixture.drawings() != drawn);
    fixture.window->resize(size);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.drawings(), drawn);
}

void TestFComp::largerFontMakesRoom() {
    const Fixture fixture({8116, 8130});
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    const QSize before = fixture.panel(3)->minimumSize();
    QFont font = fixture.window->font();
    font.setPointSizeF(2 * font.pointSizeF());
    fixture.window->setFont(font);
    QCoreApplication::processEvents();
    const PictureBox* panel = fixture.panel(3);
    QVERIFY(panel->minimumWidth() > before.width());
    QVERIFY(panel->minimumHeight() > before.height());
    const CompatibilityPlot plot = layOutCompatibility(panel->size(), panel->textHeight());
    QCOMPARE(std::get<Text>(panel->drawing().primitives.back()).topLeft, plot.textTopLeft);
    QVERIFY(panel->textWidth(fixture.texts().at(3), true) + 2 * plot.x0 <= panel->width());
}

void TestFComp::staysAsItWasMade() {
    Program program = systemOf({8116, 8130, 20});
    const Fixture fixture(program);
    program.state.systemMembers.clear();
    program.state.systemMembers.shrink_to_fit();
    program.state.systemCount = 0;
    program.biorhythm.calculationDate += 100;
    program.biorhythm.curveColours = {};
    QCOMPARE(fixture.list(1)->count(), 3);
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    const Fixture other({8116, 8130});
    other.choose(1, 0);
    other.choose(2, 1);
    QCOMPARE(fixture.drawings(), other.drawings());
}

void TestFComp::keyboardChooses() {
    const Fixture fixture({8116, 8130, 20, 30});
    QCOMPARE(fixture.window->focusWidget(), fixture.list(1));
    QTest::keyClicks(fixture.list(1), u"br"_s);
    QCOMPARE(fixture.list(1)->currentText(), u"Bruno"_s);
    QTest::keyClick(fixture.list(1), Qt::Key_Home);
    QCOMPARE(fixture.list(1)->currentText(), u"Maria"_s);
    QVERIFY(fixture.isEmpty());
    QTest::keyClicks(fixture.list(2), u"an"_s);
    QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
}

void TestFComp::veryManyMembers() {
    Program program = systemOf({});
    constexpr int many = 32767;
    for (int i = 0; i < many; ++i) {
        program.state.systemMembers.push_back(
            {.name = u"Persona%1"_s.arg(i), .birthDate = toDateValue(calculationDay) - 8116 - i});
    }
    program.state.systemCount = many;
    QElapsedTimer timer;
    timer.start();
    const Fixture fixture(program);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(fixture.list(1)->count(), many);
    // An entry costs no object of its own: both lists show the same model.
    QCOMPARE(fixture.list(1)->model(), fixture.list(2)->model());
    timer.restart();
    fixture.list(1)->showPopup();
    QCoreApplication::processEvents();
    QVERIFY(fixture.list(1)->view()->verticalScrollBar()->isVisible());
    fixture.list(1)->hidePopup();
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    timer.restart();
    QTest::keyClicks(fixture.list(1), u"persona32766"_s);
    QCOMPARE(fixture.list(1)->currentIndex(), many - 1);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    fixture.choose(2, many - 15);
    QCOMPARE(fixture.texts(), lines(12.30, 21.74, 0, 15.15));
    // Long names and many of them do not make the window wider.
    QCOMPARE(fixture.window->minimumSizeHint(), Fixture({1}).window->minimumSizeHint());
}

void TestFComp::veryLongNames() {
    Program program = systemOf({8116, 8130});
    program.state.systemMembers.at(1).name = QString(300, u'x');
    const Fixture fixture(program);
    QComboBox* list = fixture.list(1);
    list->showPopup();
    QCoreApplication::processEvents();
    QCOMPARE(list->view()->window()->width(), list->width());
    list->hidePopup();
    // Names of 64 KiB would be measured whole for each entry.
    program.state.systemMembers.at(1).name = QString(65'000, u'x');
    QVERIFY(Fixture(program).list(1)->itemText(1).size() < 1100);
}

void TestFComp::screenReaders() {
    const Fixture fixture({8116, 8130});
    const QStringList names{u"Compatibilità"_s, u"Compatibilità fisica"_s,
                            u"Compatibilità emotiva"_s, u"Compatibilità intellettiva"_s};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(fixture.panel(i)->accessibleName(), names.at(i));
        QCOMPARE(fixture.panel(i)->accessibleDescription(),
                 u"Nessun confronto: scegliere due bioritmi"_s);
    }
    fixture.choose(1, 0);
    fixture.choose(2, 1);
    for (int i = 0; i < 4; ++i) {
        const QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(fixture.panel(i));
        QCOMPARE(panel->text(QAccessible::Name), names.at(i));
        QCOMPARE(panel->text(QAccessible::Description),
                 fixture.texts().at(i) + u", tra Maria e Anna & Lia"_s);
        QCOMPARE(panel->role(), QAccessible::Chart);
    }
    const auto* frame = fixture.window->findChild<QGroupBox*>(u"Frame1"_s);
    for (const auto* label : frame->findChildren<QLabel*>()) {
        QVERIFY(label->buddy());
        QCOMPARE(label->text(), label->buddy()->accessibleName() + u':');
    }
}

void TestFComp::tabOrder() {
    const Fixture fixture({8116, 8130});
    QStringList order;
    const QWidget* first = fixture.list(1);
    const QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->parentWidget() != nullptr &&
            next->isVisibleTo(fixture.window.get())) {
            order << next->objectName();
        }
        next = next->nextInFocusChain();
    } while (next != first);
    QCOMPARE(order, (QStringList{u"Combo1"_s, u"Combo2"_s, u"Picture1_0"_s, u"Picture1_1"_s,
                                 u"Picture1_2"_s, u"Picture1_3"_s, u"Command1"_s, u"Command2"_s}));
}

void TestFComp::accessKeys() {
    const Fixture fixture({8116, 8130});
    QStringList keys;
    for (const auto* button : fixture.window->findChildren<QPushButton*>()) {
        keys << button->shortcut().toString();
    }
    for (const auto* label : fixture.window->findChildren<QLabel*>()) {
        keys << QKeySequence::mnemonic(label->text()).toString();
    }
    keys.removeAll(QString());
    keys.sort();
    QCOMPARE(keys, (QStringList{u"Alt+?"_s, u"Alt+C"_s}));
}

void TestFComp::helpOpensItsTopic() {
    const Fixture fixture({8116, 8130});
    QStringList opened;
    setHelpViewer([&](QWidget* asking, const QString& path) {
        QCOMPARE(asking, fixture.window.get());
        opened << path;
    });
    auto* button = fixture.window->findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(button->text(), u"&?"_s);
    QCOMPARE(button->toolTip(), u"Guida di questa finestra"_s);
    button->click();
    setHelpViewer({});
    QCOMPARE(opened, QStringList{helpPath(u"3compat.html"_s)});
}

void TestFComp::closes() {
    QMdiArea area;
    const QPointer<FComp> window = new FComp(systemOf({8116, 8130}));
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

} // namespace quor::test
