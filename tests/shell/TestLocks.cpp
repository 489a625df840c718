#include "shell/TestLocks.h"

#include "shell/FrameFixture.h"

#include "export/FEspBio.h"
#include "storage/SystemFile.h"
#include "system/FProj.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QTreeView>

namespace quor::test {

namespace {

enum class Lock : std::uint8_t { exportMember, printMember, exportSystem, tour, systemTour, box };

/// A maximised system of two, with a view of a member, the options and the fast-start window, which
/// were all opened before the lock; recent files of both kinds are there too.
class Fixture : public FrameFixture {
  public:
    Fixture() {
        frame.resize(1200, 900);
        recent = write(u"Recente"_s, {2026, 11, 21});
        frame.loadBiorhythmFile(recent);
        frame.closeBiorhythm();
        frame.run(Command::mnuNuovoSistema);
        enter(u"Anna"_s);
        enter(u"Bruno"_s);
        system = frame.findChild<FProj*>();
        systemFile = folder.filePath(u"sistema.brs"_s);
        if (saveSystemFile(systemFile, program)) {
            qFatal("cannot write the test's own file");
        }
        program.state.modified = true;
        press(system, u"Command6"_s);
        frame.run(Command::mnuOpzioni);
        frame.run(Command::mnuProcedureGuidate);
        activateSystem();
        area()->activeSubWindow()->showMaximized();
    }

    void activateSystem() const {
        area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(system->parentWidget()));
    }
    [[nodiscard]] QWidget* child(const QString& name) const {
        return area()->findChild<QWidget*>(name);
    }
    /// As an assistive tool presses it in the end.
    static void press(const QWidget* window, const QString& button) {
        window->findChild<QAbstractButton*>(button)->click();
    }
    /// Turns it on, with the export run or the print of a member under way where `runs`.
    void turnOn(Lock lock, bool runs) {
        const bool prints = lock == Lock::printMember;
        switch (lock) {
        case Lock::exportMember:
        case Lock::exportSystem:
        case Lock::printMember: {
            auto* tree = system->findChild<QTreeView*>(u"TreeView1"_s);
            tree->setCurrentIndex(tree->model()->index(1, 0));
            dialogs.expectBox(
                u"Avviso"_s,
                u"Durante %1 non sarà possibile effettuare cambiamenti sul sistema.\nIl controllo "
                "del sistema sarà ripristinato con la chiusura della finestra %2."_s.arg(
                    prints ? u"la procedura per la stampa"_s : u"l'esportazione"_s,
                    prints ? u"di stampa"_s : u"esportazioni"_s));
            press(system, lock == Lock::exportMember   ? u"Command12"_s
                          : lock == Lock::exportSystem ? u"Command14"_s
                                                       : u"Command15"_s);
            own = dialog(prints ? u"FStampaBio"_s : u"FEspBio"_s);
            break;
        }
        case Lock::tour:
        case Lock::systemTour:
            child(u"FFastStart"_s)->parentWidget()->close(); // it starts them and goes
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            frame.startTour(lock == Lock::tour ? 1 : 2);
            own = dialog(u"FProcGuid"_s);
            break;
        case Lock::box:
            box = std::make_unique<QDialog>(&frame);
            box->open();
            own = box.get();
            break;
        }
        if (runs) {
            if (!prints) {
                own->findChild<QCheckBox*>(u"Check1"_s)->setChecked(true);
                own->findChild<QComboBox*>(u"Combo1"_s)->setCurrentIndex(0);
            }
            press(own, u"Command1"_s);
        }
    }

    /// All that a way in could change. A run changes the name, which is that of the member in work.
    [[nodiscard]] QString state() const {
        QStringList parts = children();
        for (const QDialog* open : frame.findChildren<QDialog*>()) {
            if (open->isVisible() && open->objectName() != u"FEsp"_s) {
                parts << open->objectName();
            }
        }
        const AppState& now = program.state;
        parts << QString::number(program.biorhythm.calculationDate)
              << QString::number(now.systemCount) << QString::number(int{now.modified})
              << QString::number(int{now.guidedProcedureActive}) << now.systemFilePath
              << QString::number(ended.size()) << area()->currentSubWindow()->windowTitle();
        return parts.join(u", "_s);
    }

    QString recent;
    QString systemFile;
    FProj* system = nullptr;
    QDialog* own = nullptr; ///< what locks
    std::unique_ptr<QDialog> box;
};

struct Way {
    QString name;
    std::function<void()> go;
};

void drop(QWidget& onto, const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDropEvent event({6, 6}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&onto, &event);
}

/// Every way in but the keys and buttons that close a window.
std::vector<Way> waysToAct(Fixture& fixture, Lock lock) {
    std::vector<Way> ways;
    for (const CommandInfo& info : commandTable()) {
        // They only look, and a run over the whole system leaves them.
        const bool looks = info.menu == Menu::mnuFinestre || info.menu == Menu::mnuHelp;
        if (lock != Lock::exportSystem || !looks || info.command == Command::mnuProcedureGuidate) {
            const QString name = QString::fromLatin1(info.name);
            ways.push_back({name, [&fixture, name] { fixture.action(name)->trigger(); }});
        }
    }
    auto* toolbar = fixture.frame.findChild<QToolBar*>(u"Toolbar1"_s);
    for (QAction* tool : toolbar->actions()) {
        if (auto* button = qobject_cast<QAbstractButton*>(toolbar->widgetForAction(tool))) {
            ways.push_back({u"tool "_s + tool->objectName(), [button] { button->click(); }});
        }
    }
    for (const QString& menu : {u"mnuSistemiRecenti"_s, u"mnuBioritmiRecenti"_s}) {
        for (QAction* entry : fixture.frame.findChild<QMenu*>(menu)->actions().first(
                 fixture.frame.findChild<QMenu*>(menu)->isEmpty() ? 0 : 1)) {
            ways.push_back({menu, [entry] { entry->trigger(); }});
        }
    }
    for (const QString& path : {fixture.recent, fixture.systemFile}) {
        ways.push_back({u"drop "_s + path, [&fixture, path] { drop(fixture.frame, path); }});
    }
    ways.push_back({u"popup"_s, [&fixture] { fixture.action(u"mnuPopOpt"_s)->trigger(); }});
    ways.push_back({u"frame"_s, [&fixture, lock] {
                        if (lock != Lock::tour && lock != Lock::systemTour && lock != Lock::box) {
                            fixture.frame.close();
                        }
                    }});
    if (lock == Lock::box) {
        return ways; // what hands cannot reach waits: the tests of LateInput
    }
    for (QWidget* window :
         {fixture.child(u"FProj"_s), fixture.child(u"FOpt"_s), fixture.child(u"FFastStart"_s)}) {
        if (window == nullptr) {
            continue;
        }
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            const bool inserts = button->objectName() == u"Command1"_s;
            if (lock != Lock::systemTour || !inserts) {
                ways.push_back({window->objectName() + u' ' + button->objectName(),
                                [button] { button->click(); }});
            }
        }
    }
    auto* tree = fixture.system->findChild<QTreeView*>(u"TreeView1"_s);
    const QModelIndex leaf = tree->model()->index(0, 0, tree->model()->index(0, 0));
    ways.push_back({u"leaf by Enter"_s, [tree, leaf] {
                        tree->setCurrentIndex(leaf);
                        QTest::keyClick(tree->window()->windowHandle(), Qt::Key_Return);
                    }});
    ways.push_back({u"leaf by the mouse"_s, [tree, leaf] {
                        tree->expandAll();
                        QTest::mouseClick(tree->window()->windowHandle(), Qt::LeftButton, {},
                                          tree->viewport()->mapTo(tree->window(),
                                                                  tree->visualRect(leaf).center()));
                    }});
    return ways;
}

std::vector<Way> waysToClose(Fixture& fixture) {
    std::vector<Way> ways;
    for (const auto& [key, modifiers] :
         {std::pair{Qt::Key_F4, Qt::ControlModifier}, std::pair{Qt::Key_W, Qt::ControlModifier}}) {
        ways.push_back({QKeySequence(modifiers | key).toString(), [&fixture, key, modifiers] {
                            fixture.frame.activateWindow();
                            QTest::keyClick(fixture.frame.windowHandle(), key, modifiers);
                        }});
    }
    QWidget* corner = fixture.frame.menuBar()->cornerWidget();
    ways.push_back({u"close box in the menu bar"_s, [&fixture, corner] {
                        const QPoint box(corner->width() - corner->height() / 2,
                                         corner->height() / 2);
                        QTest::mouseClick(fixture.frame.windowHandle(), Qt::LeftButton, {},
                                          corner->mapTo(&fixture.frame, box));
                    }});
    for (QMdiSubWindow* window : fixture.area()->subWindowList()) {
        ways.push_back({u"menu of "_s + window->windowTitle(),
                        [window] { window->systemMenu()->actions().constLast()->trigger(); }});
    }
    return ways;
}

} // namespace

void TestLocks::everyWayIn_data() {
    QTest::addColumn<Lock>("lock");
    QTest::addColumn<bool>("runs");
    QTest::newRow("export of a member") << Lock::exportMember << false;
    QTest::newRow("run of it") << Lock::exportMember << true;
    QTest::newRow("print of a member") << Lock::printMember << false;
    QTest::newRow("run of it too") << Lock::printMember << true;
    QTest::newRow("export of the system") << Lock::exportSystem << false;
    QTest::newRow("run of that") << Lock::exportSystem << true;
    QTest::newRow("tour of a person") << Lock::tour << false;
    QTest::newRow("tour of a system") << Lock::systemTour << false;
    QTest::newRow("box") << Lock::box << false;
}

/// While something is locked nothing that a hand or an assistive tool does changes or opens
/// anything. A tour leaves windows to be closed, which ends it.
void TestLocks::everyWayIn() {
    QFETCH(Lock, lock);
    QFETCH(bool, runs);
    Fixture fixture;
    fixture.turnOn(lock, runs);
    QVERIFY(fixture.dialogs.finished());
    const QString before = fixture.state();
    std::vector<Way> ways = waysToAct(fixture, lock);
    QVERIFY(ways.size() > 50);
    if (lock != Lock::tour && lock != Lock::systemTour) {
        std::ranges::move(waysToClose(fixture), std::back_inserter(ways));
    }
    for (const Way& way : ways) {
        fixture.activateSystem();
        way.go();
        // What is chosen later; a run of exports would go on and end.
        QCoreApplication::sendPostedEvents();
        QVERIFY2(fixture.state() == before,
                 qPrintable(way.name + u": "_s + fixture.state() + u" | "_s + before));
    }
    // Afterwards it is all as before.
    fixture.own->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(fixture.action(u"mnuProcedureGuidate"_s)->isEnabled());
    for (const QMdiSubWindow* window : fixture.area()->subWindowList()) {
        QVERIFY2(window->isEnabled() && window->widget()->isEnabled(),
                 qPrintable(window->windowTitle()));
    }
}

/// The lock keeps the user from closing a window, not the program.
void TestLocks::theWindowsCloseWithTheSystem() {
    Fixture fixture;
    fixture.turnOn(Lock::exportSystem, false);
    fixture.dialogs.expectQuestion(u"Conferma"_s,
                                   u"Questo comporterà la chiusura del sistema aperto attualmente. "
                                   "Si desidera continuare ugualmente?"_s,
                                   Answer::yes);
    fixture.dialogs.expectQuestion(u"Conferma"_s,
                                   u"Sono presenti dati non salvati. Si desidera salvare prima di "
                                   "chiudere il sistema ?"_s,
                                   Answer::no);
    fixture.frame.run(Command::mnuChiudiSistema);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.children().contains(u"Sistema corrente"_s));
}

} // namespace quor::test
