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
#include <QScreen>

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
    /// Names of the system window's buttons that are usable, and of its tree.
    [[nodiscard]] QStringList systemButtons() const {
        QStringList names;
        for (int number = 1; number <= 15; ++number) {
            const QString name = u"Command%1"_s.arg(number);
            if (systemControl(name)->isEnabled()) {
                names << name;
            }
        }
        if (systemControl(u"TreeView1"_s)->isEnabled()) {
            names << u"TreeView1"_s;
        }
        return names;
    }
    [[nodiscard]] QWidget* systemControl(const QString& name) const {
        return system()->findChild<QWidget*>(name);
    }
    void pressInSystem(const QString& name) const {
        QTest::mouseClick(systemControl(name), Qt::LeftButton);
    }
    void exportSystem() {
        dialogs.expectBox(
            u"Avviso"_s,
            u"Durante l'esportazione non sarà possibile effettuare cambiamenti sul sistema.\nIl controllo del sistema sarà ripristinato con la chiusura della finestra esportazioni."_s);
        frame.run(Command::mnuEsportaSistema);
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

/// The buttons of a system with members, or without, outside of tours.
const QStringList& buttonsWithMembers() {
    static const QStringList names{u"Command1"_s,  u"Command2"_s,  u"Command3"_s,  u"Command4"_s,
                                   u"Command5"_s,  u"Command6"_s,  u"Command7"_s,  u"Command8"_s,
                                   u"Command9"_s,  u"Command10"_s, u"Command11"_s, u"Command12"_s,
                                   u"Command13"_s, u"Command14"_s, u"Command15"_s, u"TreeView1"_s};
    return names;
}

const QStringList& buttonsWithoutMembers() {
    static const QStringList names{u"Command1"_s, u"Command2"_s,  u"Command3"_s,  u"Command8"_s,
                                   u"Command9"_s, u"Command10"_s, u"Command11"_s, u"TreeView1"_s};
    return names;
}

const QStringList& insertButtons() {
    static const QStringList names{u"Command1"_s, u"Command2"_s};
    return names;
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
    QCOMPARE(guided.systemButtons(), QStringList());
    guided.next();
    QCOMPARE(guided.usable(), QStringList());
    QCOMPARE(guided.systemButtons(), insertButtons());
    guided.pressInSystem(u"Command1"_s);
    guided.fillIn();
    QCOMPARE(guided.program.state.systemCount, std::int16_t{1});
    QVERIFY(guided.tour() != nullptr);
    QCOMPARE(guided.systemButtons(), insertButtons()); // with a member too
    QCOMPARE(guided.usable(), QStringList());
    guided.next();
    QCOMPARE(guided.systemButtons(), QStringList());
    guided.next(); // FINE
    QVERIFY(guided.isUntouchedByTours());
    QCOMPARE(guided.systemButtons(), buttonsWithMembers());
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

/// Left open at the end of the tour, it still belongs to the system and keeps nobody waiting.
void TestGuide::theSystemsEntryOutlivesTheTour() {
    Guided guided;
    guided.frame.startTour(2);
    guided.next(4);
    guided.pressInSystem(u"Command1"_s);
    guided.next(2); // FINE
    QVERIFY(guided.isUntouchedByTours());
    QVERIFY(guided.entry()->isVisible() && !guided.entry()->isModal());
    QCOMPARE(guided.systemButtons(), buttonsWithoutMembers());
    guided.fillIn();
    QVERIFY(guided.entry() == nullptr);
    QCOMPARE(guided.systemButtons(), buttonsWithMembers());
    QVERIFY(!guided.program.state.guidedStepDone);
}

void TestGuide::theSystemsButtonsComeBack_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("by");
    for (const int step : {4, 5, 6}) {
        for (const QString& by : {u"close"_s, u"reject"_s, u"delete"_s}) {
            QTest::addRow("%s in step %d", qPrintable(by), step) << step << by;
        }
    }
}

void TestGuide::theSystemsButtonsComeBack() {
    QFETCH(int, step);
    QFETCH(QString, by);
    Guided guided;
    guided.frame.startTour(2);
    guided.next(step - 1);
    guided.enter(u"Anna"_s); // whatever is locked, a member is a member
    QCOMPARE(guided.systemButtons(), step == 5 ? insertButtons() : QStringList());
    if (by == u"close"_s) {
        guided.tour()->close();
    } else if (by == u"reject"_s) {
        guided.tour()->reject();
    } else {
        delete guided.tour();
    }
    QVERIFY(guided.isUntouchedByTours());
    QCOMPARE(guided.systemButtons(), buttonsWithMembers());
    QCOMPARE(guided.usable(), usableWithSystem());
}

void TestGuide::insertingAFile() {
    Guided guided;
    guided.frame.startTour(2);
    guided.next(4);
    guided.expectFile(FileMode::open, {}); // cancelled
    guided.pressInSystem(u"Command2"_s);
    guided.expectFile(FileMode::open, guided.write(u"Anna"_s));
    guided.pressInSystem(u"Command2"_s);
    QVERIFY(guided.dialogs.finished());
    QCOMPARE(guided.program.state.systemCount, std::int16_t{1});
    QCOMPARE(guided.systemButtons(), insertButtons());
    QCOMPARE(guided.usable(), QStringList());
    guided.next(2);
    QCOMPARE(guided.systemButtons(), buttonsWithMembers());
}

/// They run the plain commands, with their questions, and whatever the answer the window goes.
void TestGuide::choicesAskAboutWhatIsOpen() {
    for (const QString& choice : {u"Frame1"_s, u"Frame2"_s}) {
        for (const Answer answer : {Answer::no, Answer::yes}) {
            Guided guided;
            guided.enter();
            guided.program.state.modified = false;
            guided.frame.run(Command::mnuProcedureGuidate);
            guided.expectClosing(answer);
            auto* window = guided.frame.findChild<FFastStart*>();
            QTest::mouseClick(window->findChild<QWidget*>(choice), Qt::LeftButton);
            QVERIFY(guided.dialogs.finished());
            QVERIFY(!guided.children().contains(u"Quor Procedure guidate"_s));
            const bool yes = answer == Answer::yes;
            QCOMPARE(guided.program.biorhythm.isPresent(), !yes);
            QCOMPARE(guided.entry() != nullptr, yes && choice == u"Frame1"_s);
            QCOMPARE(guided.system() != nullptr, yes && choice == u"Frame2"_s);
            QCOMPARE(guided.program.state.guidedProcedureActive, std::uint8_t{0});
        }
    }
}

void TestGuide::theGreetingIsKeptAtEveryEnd() {
    const FixedClock clock(QDate(2026, 11, 21));
    const QTemporaryDir folder;
    const auto stored = [] { return getSetting(u"Options"_s, u"FastStart"_s); };
    for (const QString& end :
         {u"Command1"_s, u"Frame1"_s, u"Command3"_s, u"close box"_s, u"quit"_s, u"session"_s}) {
        QVERIFY(saveSetting(u"Options"_s, u"FastStart"_s, u"TRUE"_s));
        Program program;
        auto frame = std::make_unique<MDIForm1>(program, folder.path());
        frame->show();
        frame->start({});
        auto* window = frame->findChild<FFastStart*>();
        window->findChild<QCheckBox*>(u"Check1"_s)->click();
        QCOMPARE(stored(), u"TRUE"_s); // not before it closes
        if (end == u"close box"_s) {
            window->parentWidget()->close();
        } else if (end == u"quit"_s) {
            frame->run(Command::mnuEsci);
            frame.reset();
        } else if (end == u"session"_s) {
            frame.reset();
        } else {
            window->findChild<QAbstractButton*>(end)->click();
        }
        QVERIFY2(stored() == u"FALSE"_s, qPrintable(end));
        QCOMPARE(program.state.fastStart, u"FALSE"_s);
    }
}

/// The window stands beside the frame; when it closes it gives back what an export locks, and
/// nothing of what the tour locks.
void TestGuide::anExportOfThePersonDuringATour() {
    Guided guided;
    guided.enter();
    guided.program.state.modified = false;
    guided.frame.run(Command::mnuEsporta);
    guided.frame.startTour(1);
    guided.dialog(u"FEspBio"_s)->close();
    QVERIFY(guided.dialog(u"FEspBio"_s) == nullptr);
    QCOMPARE(guided.usable(), QStringList());
    guided.tour()->close();
    QCOMPARE(guided.usable(), usableWithPerson());
}

void TestGuide::anExportOfTheSystemDuringATour() {
    for (const bool closedFirst : {true, false}) {
        Guided guided;
        guided.frame.run(Command::mnuNuovoSistema);
        guided.enter(u"Anna"_s);
        guided.program.biorhythm.name.clear(); // as with a system from a file
        guided.program.state.modified = false;
        guided.exportSystem();
        QVERIFY(guided.dialog(u"FEspBio"_s) != nullptr);
        guided.frame.startTour(2);
        if (closedFirst) {
            guided.dialog(u"FEspBio"_s)->close();
            QCOMPARE(guided.usable(), QStringList());
            QCOMPARE(guided.systemButtons(), QStringList());
        }
        guided.next(2);
        guided.expectClosingSystem(Answer::yes);
        guided.next();
        // The system is gone, and with it what was exporting it.
        QVERIFY(guided.dialog(u"FEspBio"_s) == nullptr);
        QVERIFY(!guided.program.state.exportWholeSystem);
        guided.next();
        QCOMPARE(guided.usable(), QStringList());
        QCOMPARE(guided.systemButtons(), insertButtons());
        guided.next(2);
        QVERIFY(guided.dialogs.finished());
        QCOMPARE(guided.systemButtons(), buttonsWithoutMembers());
        QCOMPARE(guided.usable(), usableWithSystem());
        QVERIFY(guided.frame.findChild<QToolBar*>(u"Toolbar1"_s)->isEnabled());
        QVERIFY(guided.frame.findChild<QMenu*>(u"mnuFile"_s)->isEnabled());
    }
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

void TestGuide::quittingEndsTheSystemsTour() {
    for (const bool withMember : {false, true}) {
        Guided guided;
        guided.frame.startTour(2);
        guided.next(4);
        guided.pressInSystem(u"Command1"_s);
        if (withMember) {
            guided.fillIn();
            guided.program.state.modified = false;
            guided.expectClosingSystem(Answer::no);
            guided.frame.close();
            QCOMPARE(guided.ended.count(), 0);
            QVERIFY(guided.tour() != nullptr);
            QCOMPARE(guided.systemButtons(), insertButtons());
            guided.expectClosingSystem(Answer::yes);
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

void TestGuide::theToolbarStaysInSight() {
    for (const int height : {200, 300, 700}) {
        Guided guided;
        guided.frame.setGeometry(20, 30, 460, height);
        QCoreApplication::processEvents();
        guided.frame.startTour(1);
        const QRect window = guided.tour()->frameGeometry();
        QVERIFY(window.top() >= guided.area()->mapToGlobal(QPoint()).y());
        QVERIFY(guided.frame.screen()->availableGeometry().contains(window));
    }
}

} // namespace quor::test
