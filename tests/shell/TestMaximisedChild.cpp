#include "shell/TestMaximisedChild.h"

#include "shell/FrameFixture.h"

#include "system/FProj.h"
#include "toolkit/ChildWindow.h"
#include "views/analysis/FComp.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FPrevMed.h"
#include "views/analysis/FStat.h"
#include "views/analysis/FStatMed.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphMed.h"
#include "views/graph/FGrphSet.h"

#include <QMenuBar>

namespace quor::test {

namespace {

const QString graph = u"Grafico di Maria Rossi"_s;
const QString week = u"Stato settimanale di Maria Rossi"_s;
const QString dayState = u"Stato del giorno di Maria Rossi"_s;

class Fixture : public FrameFixture {
  public:
    /// With the graph of a person, maximised.
    Fixture() {
        frame.resize(1200, 900);
        enter();
        window(graph)->showMaximized();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QMdiSubWindow* window(const QString& title) const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QMdiSubWindow* candidate : area()->subWindowList()) {
            if (candidate->windowTitle() == title) {
                return candidate;
            }
        }
        return nullptr;
    }
    void open(Command command) {
        frame.run(command);
        QCoreApplication::processEvents();
    }
    /// "active, maximised, title of the frame".
    [[nodiscard]] QString state() const {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStringList maximised;
        for (const QMdiSubWindow* candidate : area()->subWindowList()) {
            if (candidate->isMaximized() && candidate->size() == area()->viewport()->size()) {
                maximised << candidate->windowTitle();
            }
        }
        const QMdiSubWindow* active = area()->activeSubWindow();
        return (QStringList{active != nullptr ? active->windowTitle() : u"-"_s} + maximised +
                QStringList{frame.windowTitle()})
            .join(u", "_s);
    }
    /// The same where a window that fills the frame is active.
    [[nodiscard]] static QString full(const QString& title) { return behind(title, title); }
    [[nodiscard]] static QString behind(const QString& active, const QString& maximised) {
        return u"%1, %2, Quor - [%2]"_s.arg(active, maximised);
    }
    /// Whether the window stands in front of all others with the whole of its contents and its
    /// title bar.
    [[nodiscard]] bool isWholeInFront(const QMdiSubWindow* shown) const {
        const int titleBar = shown->widget()->geometry().top();
        return area()->subWindowList(QMdiArea::StackingOrder).constLast() == shown &&
               titleBar > shown->fontMetrics().height() &&
               area()->viewport()->rect().contains(shown->geometry()) &&
               shown->size() == shown->sizeHint().expandedTo(shown->minimumSizeHint());
    }
};

} // namespace

void TestMaximisedChild::whatComesAfterIt_data() {
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("grows");
    QTest::newRow("week") << Command::mnuStatoSettimanale << week << true;
    QTest::newRow("day state") << Command::mnuStatoOdierno << dayState << false;
    QTest::newRow("forecasts") << Command::mnuPrevisioni << u"Previsioni di Maria Rossi"_s << false;
    QTest::newRow("options") << Command::mnuOpzioni << u"Opzioni"_s << false;
    QTest::newRow("fast start") << Command::mnuProcedureGuidate << u"Quor Procedure guidate"_s
                                << false;
}

void TestMaximisedChild::whatComesAfterIt() {
    QFETCH(Command, command);
    QFETCH(QString, title);
    QFETCH(bool, grows);
    Fixture fixture;
    QCOMPARE(fixture.state(), Fixture::full(graph));
    fixture.open(command);
    if (grows) {
        QCOMPARE(fixture.state(), Fixture::full(title));
    } else {
        QCOMPARE(fixture.state(), Fixture::behind(title, graph));
        QVERIFY(fixture.isWholeInFront(fixture.window(title)));
    }
    fixture.window(title)->close();
    QCOMPARE(fixture.state(), Fixture::full(graph));
}

void TestMaximisedChild::whatCanGrow() {
    Program program;
    resetToStartUp(program);
    FrameFixture fixture;
    const auto grows = [](ChildWindow* window) {
        const std::unique_ptr<ChildWindow> owner(window);
        return window->grows();
    };
    QVERIFY(grows(new FGrph(program, fixture.frame)));
    QVERIFY(grows(new FGrphMed(program, fixture.frame)));
    QVERIFY(grows(new FGrphSet(program)));
    QVERIFY(grows(new FComp(program)));
    QVERIFY(grows(new FProj(program, fixture.frame)));
    QVERIFY(!grows(new FStat(program)));
    QVERIFY(!grows(new FStatMed(program)));
    QVERIFY(!grows(new FPrev(program)));
    QVERIFY(!grows(new FPrevMed(program)));
}

void TestMaximisedChild::theWayBack_data() {
    QTest::addColumn<QKeySequence>("keys");
    for (const char* keys : {"Ctrl+Tab", "Ctrl+F6", "Ctrl+Shift+F6"}) {
        QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
}

/// Between a form and the maximised window, and between two that are maximised in turn.
void TestMaximisedChild::theWayBack() {
    QFETCH(QKeySequence, keys);
    for (const Command command : {Command::mnuStatoOdierno, Command::mnuStatoSettimanale}) {
        const bool grows = command == Command::mnuStatoSettimanale;
        Fixture fixture;
        fixture.open(command);
        const auto press = [&] {
            QTest::keyClick(fixture.frame.windowHandle(), Qt::Key(keys[0].key()),
                            keys[0].keyboardModifiers());
            QTest::keyRelease(fixture.frame.windowHandle(), Qt::Key_Control);
        };
        press();
        QCOMPARE(fixture.state(), Fixture::full(graph));
        press();
        QCOMPARE(fixture.state(), grows ? Fixture::full(week) : Fixture::behind(dayState, graph));
        fixture.area()->setActiveSubWindow(fixture.window(graph));
        QCOMPARE(fixture.state(), Fixture::full(graph));
        fixture.open(command); // which is open already
        QCOMPARE(fixture.state(), grows ? Fixture::full(week) : Fixture::behind(dayState, graph));
    }
}

void TestMaximisedChild::restoredByTheUser_data() {
    QTest::addColumn<QString>("way");
    for (const char* way :
         {"restore", "minimise", "mnuWinArrHor", "mnuWinArrVer", "mnuWinArrCas"}) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

/// From then on windows are as large as they were; the menu bar has lost its buttons.
void TestMaximisedChild::restoredByTheUser() {
    QFETCH(QString, way);
    Fixture fixture;
    fixture.open(Command::mnuStatoOdierno);
    const QWidget* buttons = fixture.frame.menuBar()->cornerWidget();
    QVERIFY(buttons->isVisible());
    if (way == u"restore"_s) {
        fixture.window(graph)->showNormal();
    } else if (way == u"minimise"_s) {
        fixture.window(graph)->showMinimized();
    } else {
        fixture.action(way)->trigger();
    }
    QVERIFY(!buttons->isVisible());
    fixture.open(Command::mnuStatoSettimanale);
    QCOMPARE(fixture.state(), week + u", Quor"_s);
    fixture.open(Command::mnuGrafico);
    QCOMPARE(fixture.state(), graph + u", Quor"_s);
}

void TestMaximisedChild::closing() {
    Fixture fixture;
    fixture.open(Command::mnuStatoSettimanale);
    fixture.open(Command::mnuStatoOdierno);
    QCOMPARE(fixture.state(), Fixture::behind(dayState, week));
    // What was behind the form comes next, and not what was opened first.
    fixture.window(dayState)->close();
    QCOMPARE(fixture.state(), Fixture::full(week));
    // Another one that can grow takes the place of the maximised one that closes.
    fixture.window(week)->close();
    QCOMPARE(fixture.state(), Fixture::full(graph));
    fixture.open(Command::mnuStatoOdierno);
    fixture.window(graph)->close(); // by its button in the menu bar
    QCOMPARE(fixture.state(), dayState + u", Quor"_s);
    fixture.window(dayState)->close();
    QCOMPARE(fixture.state(), u"-, Quor"_s);
    fixture.open(Command::mnuGrafico); // begins anew
    QCOMPARE(fixture.state(), graph + u", Quor"_s);
}

/// A window that has closed is deleted later; until then it is no window to come next.
void TestMaximisedChild::closingAllAtOnce() {
    Fixture fixture;
    fixture.open(Command::mnuStatoOdierno);
    fixture.frame.closeBiorhythm(); // the graph first; a warning of Qt fails the test
    QCOMPARE(fixture.state(), u"-, Quor"_s);
}

void TestMaximisedChild::aFormMaximisedByTheUser() {
    Fixture fixture;
    fixture.open(Command::mnuStatoOdierno);
    fixture.window(dayState)->showMaximized();
    QCOMPARE(fixture.state(), Fixture::full(dayState));
    fixture.window(dayState)->showNormal();
    QCOMPARE(fixture.state(), dayState + u", Quor"_s);
}

} // namespace quor::test
