#include "shell/TestGuide.h"

#include "shell/FrameFixture.h"

#include "guidance/FFastStart.h"
#include "guidance/FProcGuid.h"
#include "shell/FIns.h"
#include "shell/ToolHighlight.h"
#include "system/FProj.h"
#include "toolkit/SettingsStore.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Positions of the toolbar's buttons.
const QList<int>& allTools() {
    static const QList<int> positions{1, 2, 3, 5, 6, 7, 9, 10, 11, 12, 14, 16, 18, 20};
    return positions;
}

class Guided : public FrameFixture {
  public:
    [[nodiscard]] FProcGuid* tour() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return frame.findChild<FProcGuid*>();
    }
    void next(int times = 1) const {
        for (int i = 0; i < times; ++i) {
            tour()->findChild<QPushButton*>(u"Command1"_s)->click();
        }
    }
    [[nodiscard]] FIns* entry() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return frame.findChild<FIns*>();
    }
    void fillIn(const QString& name = u"Maria Rossi"_s) const {
        entry()->findChild<QLineEdit*>(u"Text3"_s)->setText(name);
        entry()->findChild<QLineEdit*>(u"Text1"_s)->setText(u"25/12/1981"_s);
        entry()->findChild<QPushButton*>(u"Command2"_s)->click();
    }
    [[nodiscard]] FProj* system() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return frame.findChild<FProj*>();
    }
    void expectClosingSystem(Answer answer) {
        dialogs.expectQuestion(
            u"Conferma"_s,
            u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare ugualmente?"_s,
            answer);
    }
    void expectRefusal() {
        dialogs.expectBox(
            u"Avviso"_s,
            u"E' in corso un altra procedura guidata!\nSi prega di completare prima la procedura corrente prima di continuare."_s);
    }
    /// Names of the commands and positions of the tools that are usable.
    [[nodiscard]] QStringList usable() const {
        QStringList names;
        for (const CommandInfo& info : commandTable()) {
            if (action(QString::fromLatin1(info.name))->isEnabled()) {
                names << QString::fromLatin1(info.name);
            }
        }
        const QList<int> disabled = disabledTools();
        for (const int position : allTools()) {
            if (!disabled.contains(position)) {
                names << QString::number(position);
            }
        }
        if (action(u"mnuPopOpt"_s)->isEnabled()) {
            names << u"mnuPopOpt"_s;
        }
        return names;
    }
    [[nodiscard]] bool isUntouchedByTours() const {
        return tour() == nullptr && program.state.guidedProcedureActive == 0 &&
               !program.state.guidedStepDone && frame.findChildren<ToolHighlight*>().isEmpty() &&
               (system() == nullptr || system()->usable() == FProj::Usable::everything);
    }
};

/// What is usable in a program that does the same without a tour.
QStringList usableWithout(const std::function<void(Guided&)>& deed) {
    Guided other;
    deed(other);
    return other.usable();
}

QStringList usableAtStart() {
    return usableWithout([](Guided& /*guided*/) {});
}

QStringList usableWithPerson() {
    return usableWithout([](Guided& guided) { guided.enter(); });
}

QStringList usableWithSystem() {
    return usableWithout([](Guided& guided) { guided.frame.run(Command::mnuNuovoSistema); });
}

} // namespace

void TestGuide::whenItGreets_data() {
    QTest::addColumn<QString>("setting");
    QTest::addColumn<StartMode>("mode");
    QTest::addColumn<bool>("greets");
    QTest::newRow("no setting") << QString() << StartMode::plain << true;
    QTest::newRow("on") << u"TRUE"_s << StartMode::plain << true;
    QTest::newRow("off") << u"FALSE"_s << StartMode::plain << false;
    QTest::newRow("another text") << u"false"_s << StartMode::plain << true;
    // Even where nothing comes of what was named.
    QTest::newRow("a text") << u"TRUE"_s << StartMode::commandLineText << false;
    QTest::newRow("a file") << u"TRUE"_s << StartMode::openFile << false;
}

void TestGuide::whenItGreets() {
    QFETCH(QString, setting);
    QFETCH(StartMode, mode);
    QFETCH(bool, greets);
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, setting));
    Guided guided;
    if (mode == StartMode::openFile) {
        guided.expectUpdate(Answer::no);
    }
    guided.frame.start({.mode = mode, .text = guided.write(u"Anna"_s)});
    QCOMPARE(guided.children().contains(u"Quor Procedure guidate"_s), greets);
    if (greets) {
        const QRect area = guided.area()->viewport()->rect();
        const QRect window = guided.area()->subWindowList().constFirst()->geometry();
        QVERIFY((window.center() - area.center()).manhattanLength() <= 2);
        QCOMPARE(guided.frame.findChild<QCheckBox*>(u"Check1"_s)->isChecked(),
                 setting != u"false"_s);
    }
}

void TestGuide::inASmallFrame() {
    Guided guided;
    guided.frame.resize(420, 260);
    QCoreApplication::processEvents();
    guided.frame.run(Command::mnuProcedureGuidate);
    QCoreApplication::processEvents();
    const auto* window = guided.frame.findChild<FFastStart*>();
    for (const QString& name : {u"Label1"_s, u"Label2"_s, u"Label3"_s, u"Image1"_s, u"Image2"_s}) {
        const auto* control = window->findChild<QWidget*>(name);
        QVERIFY2(control->parentWidget()->rect().contains(control->geometry()), qPrintable(name));
    }
    const QPoint corner = guided.area()->subWindowList().constFirst()->pos();
    QVERIFY(corner.x() >= 0 && corner.y() >= 0);
}

void TestGuide::fromTheMenu() {
    QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"FALSE"_s));
    Guided guided;
    guided.frame.start({});
    QVERIFY(guided.children().isEmpty());
    guided.action(u"mnuProcedureGuidate"_s)->trigger();
    guided.action(u"mnuProcedureGuidate"_s)->trigger();
    QCOMPARE(guided.children(), QStringList{u"Quor Procedure guidate"_s}); // one of them
    auto* check = guided.frame.findChild<QCheckBox*>(u"Check1"_s);
    QVERIFY(!check->isChecked());
    check->click();
    guided.frame.findChild<FFastStart*>()->closeWindow();
    guided.frame.run(Command::mnuProcedureGuidate);
    QCOMPARE(guided.children(), QStringList{u"Quor Procedure guidate"_s});
    auto* window = guided.frame.findChild<FFastStart*>();
    QVERIFY(window->findChild<QCheckBox*>(u"Check1"_s)->isChecked());

    QTest::mouseClick(window->findChild<QWidget*>(u"Frame1"_s), Qt::LeftButton);
    QVERIFY(guided.children().isEmpty());
    QVERIFY(guided.entry() != nullptr && guided.entry()->isModal());
    guided.entry()->reject();

    guided.frame.run(Command::mnuProcedureGuidate);
    window = guided.frame.findChild<FFastStart*>();
    QTest::mouseClick(window->findChild<QWidget*>(u"Frame2"_s), Qt::LeftButton);
    QCOMPARE(guided.children(), QStringList{u"Sistema corrente"_s});
}

void TestGuide::firstTour() {
    Guided guided;
    const QStringList before = guided.usable();
    guided.frame.run(Command::mnuProcedureGuidate);
    guided.frame.findChild<FFastStart*>()->findChild<QPushButton*>(u"Command2"_s)->click();
    QVERIFY(guided.tour() != nullptr && guided.tour()->isVisible());
    QVERIFY(guided.children().isEmpty()); // the window that started it has closed
    QCOMPARE(guided.program.state.guidedProcedureActive, std::uint8_t{1});
    for (int step = 1; step <= 4; ++step) {
        QCOMPARE(guided.usable(), QStringList());
        guided.next();
    }
    QVERIFY(guided.entry() != nullptr && guided.entry()->isVisible());
    QVERIFY(!guided.entry()->isModal());
    QVERIFY(!guided.tour()->isEnabled());
    QCOMPARE(guided.usable(), QStringList());
    guided.entry()->findChild<QLineEdit*>(u"Text3"_s)->setText(u"Maria"_s);
    guided.entry()->findChild<QPushButton*>(u"Command3"_s)->click();
    guided.entry()->close();
    QVERIFY(guided.entry()->isVisible());
    QCOMPARE(guided.entry()->findChild<QLineEdit*>(u"Text3"_s)->text(), u"Maria"_s);
    guided.fillIn();
    QVERIFY(guided.entry() == nullptr);
    QCOMPARE(guided.children(), QStringList{u"Grafico di Maria Rossi"_s});
    QVERIFY(guided.tour()->isEnabled());
    QCOMPARE(guided.usable(), QStringList()); // step 5
    guided.next();
    QCOMPARE(guided.usable(),
             (QStringList{u"mnuGrafico"_s, u"mnuStatoSettimanale"_s, u"mnuStatoOdierno"_s,
                          u"mnuPrevisioni"_s, u"9"_s, u"10"_s, u"11"_s, u"12"_s}));
    guided.action(u"Settimana"_s)->trigger();
    QCOMPARE(guided.children().size(), 2);
    guided.next();
    QCOMPARE(guided.usable(), (QStringList{u"mnuSalvaBioritmo"_s, u"7"_s}));
    guided.expectFile(FileMode::save, guided.folder.filePath(u"x.bio"_s));
    guided.expectSaved();
    guided.action(u"mnuSalvaBioritmo"_s)->trigger();
    guided.next();
    QCOMPARE(guided.usable(), (QStringList{u"mnuHlpCompleto"_s, u"20"_s}));
    guided.next();
    QCOMPARE(guided.usable(), QStringList());
    guided.next(); // FINE
    QVERIFY(guided.isUntouchedByTours());
    QVERIFY(guided.usable() != before);
    QCOMPARE(guided.usable(), usableWithPerson());
}

void TestGuide::secondTour() {
    Guided guided;
    guided.frame.run(Command::mnuProcedureGuidate);
    guided.frame.findChild<FFastStart*>()->findChild<QPushButton*>(u"Command3"_s)->click();
    QCOMPARE(guided.program.state.guidedProcedureActive, std::uint8_t{2});
    for (int step = 1; step <= 3; ++step) {
        QCOMPARE(guided.usable(), QStringList());
        guided.next();
    }
    QCOMPARE(guided.children(), QStringList{u"Sistema corrente"_s});
    QCOMPARE(guided.usable(), QStringList());
    QVERIFY(guided.system()->usable() == FProj::Usable::nothing);
    guided.next();
    QCOMPARE(guided.usable(), QStringList());
    QVERIFY(guided.system()->usable() == FProj::Usable::insertion);
    guided.frame.showBiorhythmEntry(); // as the system window's button does
    guided.fillIn();
    QCOMPARE(guided.program.state.systemCount, std::int16_t{1});
    QVERIFY(guided.tour() != nullptr);
    guided.next();
    QVERIFY(guided.system()->usable() == FProj::Usable::nothing);
    guided.next(); // FINE
    QVERIFY(guided.isUntouchedByTours());
    QCOMPARE(guided.usable(), usableWithSystem());
}

void TestGuide::theOpenPersonIsClosedFirst() {
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{2}}) {
        Guided guided;
        guided.enter();
        guided.program.state.modified = false;
        guided.frame.startTour(number);
        guided.next(number == 1 ? 3 : 2);
        guided.expectClosing(Answer::yes);
        guided.next();
        QVERIFY(guided.dialogs.finished());
        QCOMPARE(guided.entry() != nullptr, number == 1);
        QCOMPARE(guided.system() != nullptr, number == 2);
        QVERIFY(guided.tour() != nullptr);
        guided.tour()->close();
        QVERIFY(guided.isUntouchedByTours());
        QCOMPARE(guided.usable(), number == 1 ? usableAtStart() : usableWithSystem());
    }
}

void TestGuide::theOpenSystemIsClosedFirst() {
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{2}}) {
        Guided guided;
        guided.frame.run(Command::mnuNuovoSistema);
        const QPointer<FProj> first = guided.system();
        guided.frame.showBiorhythmEntry(); // and left open
        guided.frame.startTour(number);
        QVERIFY(first->usable() == FProj::Usable::nothing);
        guided.next(number == 1 ? 3 : 2);
        guided.expectClosingSystem(Answer::yes);
        guided.next();
        QVERIFY(guided.dialogs.finished());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull());
        if (number == 1) {
            QVERIFY(!guided.program.state.systemOpen);
            guided.fillIn();
            QCOMPARE(guided.children(), QStringList{u"Grafico di Maria Rossi"_s});
            guided.next(5);
            QCOMPARE(guided.usable(), usableWithPerson());
        } else {
            QVERIFY(guided.entry() == nullptr);
            QVERIFY(guided.system()->usable() == FProj::Usable::nothing);
            guided.next(3);
            QCOMPARE(guided.usable(), usableWithSystem());
        }
        QVERIFY(guided.isUntouchedByTours());
    }
}

void TestGuide::aKeptPersonEndsTheTour() {
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{2}}) {
        Guided guided;
        guided.enter();
        guided.frame.startTour(number);
        guided.next(number == 1 ? 3 : 2);
        guided.expectClosing(Answer::no);
        guided.next();
        QVERIFY(guided.dialogs.finished());
        QVERIFY(guided.isUntouchedByTours());
        QVERIFY(guided.entry() == nullptr && guided.system() == nullptr);
        QCOMPARE(guided.usable(), usableWithPerson());
    }
}

void TestGuide::aKeptSystemEndsTheTour() {
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{2}}) {
        Guided guided;
        guided.frame.run(Command::mnuNuovoSistema);
        guided.frame.showBiorhythmEntry();
        guided.frame.startTour(number);
        guided.next(number == 1 ? 3 : 2);
        guided.expectClosingSystem(Answer::no);
        guided.next();
        QVERIFY(guided.dialogs.finished());
        QVERIFY(guided.isUntouchedByTours());
        QVERIFY(guided.program.state.systemOpen);
        QCOMPARE(guided.usable(), usableWithSystem());
        // The system's own dialog is as it was.
        QVERIFY(guided.entry()->isVisible() && !guided.entry()->isModal());
        guided.fillIn();
        QCOMPARE(guided.program.state.systemCount, std::int16_t{1});
    }
}

void TestGuide::closingTheSystemEndsTheTour() {
    for (const int step : {4, 5}) {
        Guided guided;
        guided.frame.startTour(2);
        guided.next(step - 1);
        guided.frame.showBiorhythmEntry();
        guided.expectClosingSystem(Answer::no);
        guided.area()->subWindowList().constFirst()->close();
        QVERIFY(guided.tour() != nullptr);
        QVERIFY(guided.system() != nullptr);
        guided.expectClosingSystem(Answer::yes);
        guided.area()->subWindowList().constFirst()->close();
        QVERIFY(guided.dialogs.finished());
        QVERIFY(guided.isUntouchedByTours());
        QVERIFY(guided.entry() == nullptr);
        QCOMPARE(guided.usable(), usableAtStart());
    }
}

void TestGuide::endingWhileThePersonIsEntered() {
    Guided guided;
    guided.frame.startTour(1);
    guided.next(4);
    guided.entry()->findChild<QLineEdit*>(u"Text3"_s)->setText(u"Maria"_s);
    guided.tour()->close();
    QVERIFY(guided.isUntouchedByTours());
    QCOMPARE(guided.usable(), usableAtStart());
    // The dialog stays, with what was typed, and is again one that the frame waits for.
    QVERIFY(guided.entry()->isVisible() && guided.entry()->isModal());
    QCOMPARE(guided.entry()->findChild<QLineEdit*>(u"Text3"_s)->text(), u"Maria"_s);
    guided.entry()->findChild<QPushButton*>(u"Command3"_s)->click();
    QVERIFY(guided.entry() == nullptr);

    guided.frame.startTour(1);
    guided.next(4);
    guided.tour()->close();
    guided.fillIn();
    QCOMPARE(guided.usable(), usableWithPerson());
    QVERIFY(guided.isUntouchedByTours());
}

void TestGuide::theSystemsEntryIsNotHeld() {
    Guided guided;
    guided.frame.startTour(2);
    guided.next(4);
    guided.frame.showBiorhythmEntry();
    guided.entry()->findChild<QPushButton*>(u"Command3"_s)->click();
    QVERIFY(guided.entry() == nullptr);
    QVERIFY(guided.tour() != nullptr);
}

void TestGuide::quittingEndsTheTour() {
    for (const int steps : {0, 4, 5}) {
        Guided guided;
        guided.frame.startTour(1);
        guided.next(std::min(steps, 4));
        if (steps == 5) {
            guided.fillIn();
            guided.expectClosing(Answer::yes);
            guided.expectSaving(Answer::no);
        }
        guided.frame.close();
        QVERIFY(guided.dialogs.finished());
        QCOMPARE(guided.ended.count(), 1);
        QVERIFY(guided.isUntouchedByTours());
    }
}

void TestGuide::aRefusedQuitDoesNot() {
    Guided guided;
    guided.enter();
    guided.frame.startTour(1);
    guided.expectClosing(Answer::no);
    guided.frame.close();
    QVERIFY(guided.dialogs.finished());
    QCOMPARE(guided.ended.count(), 0);
    QVERIFY(guided.tour() != nullptr);
    QCOMPARE(guided.usable(), QStringList());
}

void TestGuide::theProgramsEnd() {
    const FixedClock clock(QDate(2026, 11, 21));
    const QTemporaryDir folder;
    for (const int steps : {0, 4}) {
        Program program;
        auto frame = std::make_unique<MDIForm1>(program, folder.path());
        frame->show();
        frame->startTour(1);
        for (int i = 0; i < steps; ++i) {
            frame->findChild<FProcGuid*>()->findChild<QPushButton*>(u"Command1"_s)->click();
        }
        frame.reset(); // as at the end of the session
        QCOMPARE(program.state.guidedProcedureActive, std::uint8_t{0});
        QVERIFY(!program.state.guidedStepDone);
    }
}

void TestGuide::onlyOneTour() {
    Guided guided;
    guided.frame.startTour(2);
    const FProcGuid* first = guided.tour();
    guided.expectRefusal();
    guided.frame.run(Command::mnuProcedureGuidate);
    QVERIFY(guided.dialogs.finished());
    QVERIFY(guided.children().isEmpty());
    guided.expectRefusal();
    guided.frame.startTour(1);
    QVERIFY(guided.dialogs.finished());
    QCOMPARE(guided.program.state.guidedProcedureActive, std::uint8_t{2});
    QCOMPARE(guided.frame.findChildren<FProcGuid*>().size(), 1);
    QCOMPARE(guided.tour(), first);
    // Over, and another one can begin at once.
    guided.tour()->close();
    guided.frame.startTour(1);
    QVERIFY(guided.tour() != nullptr);
    QCOMPARE(guided.program.state.guidedProcedureActive, std::uint8_t{1});
}

void TestGuide::highlightedButtons() {
    Guided guided;
    guided.frame.resize(1000, 700);
    const auto* toolbar = guided.frame.findChild<QToolBar*>(u"Toolbar1"_s);
    const auto highlighted = [&] {
        QStringList keys;
        for (const ToolHighlight* frame : toolbar->findChildren<ToolHighlight*>()) {
            for (QAction* tool : toolbar->actions()) {
                if (tool->isVisible() && frame->isVisible() &&
                    toolbar->widgetForAction(tool)->geometry() == frame->geometry()) {
                    keys << tool->objectName();
                }
            }
        }
        return keys;
    };
    guided.frame.startTour(1);
    QVERIFY(highlighted().isEmpty());
    guided.next(2);
    QCOMPARE(highlighted(), QStringList{u"NuovoBioritmo"_s});
    QWidget* button = toolbar->widgetForAction(toolbar->actions().at(4));
    QVERIFY(toolbar->childAt(button->geometry().center()) == button); // clicks go through
    guided.next(2);
    QVERIFY(highlighted().isEmpty());
    guided.fillIn();
    guided.next();
    QCOMPARE(highlighted(),
             (QStringList{u"Grafico"_s, u"Settimana"_s, u"Statistica"_s, u"Previsione"_s}));
    // A button that moves or hides takes its frame along.
    toolbar->actions().at(0)->setVisible(false);
    QCoreApplication::processEvents();
    QCOMPARE(highlighted().size(), 4);
    toolbar->actions().at(8)->setVisible(false);
    QCoreApplication::processEvents();
    QCOMPARE(highlighted(), (QStringList{u"Settimana"_s, u"Statistica"_s, u"Previsione"_s}));
}

} // namespace quor::test
