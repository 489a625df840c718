#include "accessibility/TestChildKeys.h"

#include "toolkit/ChildWindow.h"
#include "toolkit/PictureBox.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/GraphPlot.h"

#include "accessibility/EveryWindow.h"
#include "shell/FrameFixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScopeGuard>

namespace quor::test {

namespace {

class Scene : public FrameFixture {
  public:
    Scene() {
        frame.resize(1280, 960);
        frame.activateWindow();
        enter();
        frame.run(Command::mnuGrafico);
        frame.run(Command::mnuStatoOdierno);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QString active() const { return area()->activeSubWindow()->windowTitle(); }
    void press(const QKeySequence& keys) {
        QTest::keySequence(QApplication::focusWidget(), keys);
        QCoreApplication::processEvents();
    }
};

const QString& graph() {
    static const QString title = u"Grafico di Maria Rossi"_s;
    return title;
}
const QString& dayState() {
    static const QString title = u"Stato del giorno di Maria Rossi"_s;
    return title;
}

/// Where the keyboard is in a window that has just opened; empty for one outside the frame.
QString firstControl(const WindowEntry& entry, int points, bool maximised) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
    const auto restored = qScopeGuard([&before] { QApplication::setFont(before); });
    WindowScene scene;
    if (maximised) {
        QObject::connect(scene.area(), &QMdiArea::subWindowActivated, scene.area(),
                         [](QMdiSubWindow* active) {
                             if (active != nullptr) {
                                 active->showMaximized();
                             }
                         });
        scene.frame.run(Command::mnuProcedureGuidate); // it stays behind the new window
    }
    const QWidget* window = showWindow(entry, scene);
    if (qobject_cast<const ChildWindow*>(window) == nullptr) {
        return {};
    }
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr              ? u"no control"_s
           : window->isAncestorOf(focus) ? focus->objectName()
                                         : u"outside: "_s + focus->objectName();
}

} // namespace

void TestChildKeys::switchesWindows_data() {
    QTest::addColumn<QKeySequence>("keys");
    for (const char* keys : {"Ctrl+F6", "Ctrl+Shift+F6", "Ctrl+Tab"}) {
        QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
}

void TestChildKeys::switchesWindows() {
    QFETCH(QKeySequence, keys);
    Scene scene;
    QCOMPARE(scene.active(), dayState());
    scene.press(keys);
    QCOMPARE(scene.active(), graph());
    QVERIFY(scene.area()->activeSubWindow()->isAncestorOf(QApplication::focusWidget()));
    scene.press(keys);
    QCOMPARE(scene.active(), dayState());
}

void TestChildKeys::closesTheActiveWindow_data() {
    QTest::addColumn<QKeySequence>("keys");
    for (const char* keys : {"Ctrl+F4", "Ctrl+W"}) {
        QTest::newRow(keys) << QKeySequence(QString::fromLatin1(keys));
    }
}

void TestChildKeys::closesTheActiveWindow() {
    QFETCH(QKeySequence, keys);
    Scene scene;
    scene.press(keys);
    QCOMPARE(scene.children(), QStringList(graph()));
    QVERIFY(scene.area()->activeSubWindow()->isAncestorOf(QApplication::focusWidget()));
    scene.press(keys);
    QCOMPARE(scene.children(), QStringList());
}

/// Restoring, moving, resizing, closing.
void TestChildKeys::opensTheWindowsMenu() {
    Scene scene;
    scene.press(QKeySequence(u"Alt+-"_s));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(menu, scene.area()->activeSubWindow()->systemMenu());
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QCOMPARE(scene.children().size(), 2);
}

void TestChildKeys::nothingToActOn() {
    FrameFixture fixture;
    fixture.frame.activateWindow();
    for (const char* keys : {"Ctrl+F6", "Ctrl+Shift+F6", "Ctrl+F4", "Alt+-"}) {
        QTest::keySequence(&fixture.frame, QKeySequence(QString::fromLatin1(keys)));
    }
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QCOMPARE(fixture.ended.count(), 0);
}

void TestChildKeys::tabStaysInTheWindow() {
    Scene scene;
    const QMdiSubWindow* window = scene.area()->activeSubWindow();
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(window->isAncestorOf(QApplication::focusWidget()));
    }
}

void TestChildKeys::beginsWithTheSameControl_data() {
    QTest::addColumn<const WindowEntry*>("entry");
    for (const WindowEntry& entry : everyWindow()) {
        QTest::newRow(entry.className) << &entry;
    }
}

/// The first control of a new window depends neither on the font, with which title bars of our own
/// may come, nor on a maximised window that the new one comes in front of.
void TestChildKeys::beginsWithTheSameControl() {
    QFETCH(const WindowEntry*, entry);
    const QString usual = firstControl(*entry, 10, false);
    if (usual.isEmpty()) {
        return; // not inside the frame
    }
    QVERIFY2(!usual.startsWith(u"Help"_s), qPrintable(usual));
    QCOMPARE(firstControl(*entry, 10, true), usual);
    QCOMPARE(firstControl(*entry, 20, false), usual);
    QCOMPARE(firstControl(*entry, 20, true), usual);
}

void TestChildKeys::theGraphsMenu_data() {
    QTest::addColumn<bool>("menuKey");
    QTest::newRow("Shift+F10") << false;
    QTest::newRow("menu key") << true;
}

/// From the picture, which the tab key reaches, to the options, all with keys.
void TestChildKeys::theGraphsMenu() {
    QFETCH(bool, menuKey);
    Scene scene;
    scene.press(QKeySequence(u"Ctrl+F6"_s));
    auto* window = scene.frame.findChild<FGrph*>();
    auto* picture = window->findChild<PictureBox*>();
    for (int i = 0; i < 20 && QApplication::focusWidget() != picture; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), picture);
    if (menuKey) {
        // The platform makes it of the key.
        const QPoint centre = picture->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, centre, picture->mapToGlobal(centre));
        QApplication::sendEvent(picture, &event);
    } else {
        QTest::keyClick(picture, Qt::Key_F10, Qt::ShiftModifier);
    }
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->objectName(), u"mnuPopUp"_s);
    QCOMPARE(menu->actions().first()->text(), u"Giorno 15/03/2004"_s);
    const GraphPlot plot = layOutGraph(picture->size(), 20);
    QCOMPARE(menu->pos(), picture->mapToGlobal(QPoint(plot.x(20), plot.baseline)));
    QTest::keyClick(menu, Qt::Key_Up); // the last entry
    QTest::keyClick(menu, Qt::Key_Return);
    QVERIFY(window->findChild<FGrOpt*>() != nullptr);
}

} // namespace quor::test
