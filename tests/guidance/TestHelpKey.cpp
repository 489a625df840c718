#include "TestHelpKey.h"

#include "HelpProbe.h"
#include "guidance/FAbout.h"
#include "guidance/HelpCollection.h"
#include "guidance/HelpKey.h"
#include "guidance/HelpWindow.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A help button like those of the program's windows.
QPushButton* addHelpButton(QWidget* window, const QString& page) {
    auto* button = new QPushButton(u"&?"_s, window);
    QObject::connect(button, &QPushButton::clicked, window,
                     [window, page] { ShowHelp(window, helpPath(page)); });
    return button;
}

class KeyInPlace {
  public:
    KeyInPlace() { QApplication::instance()->installEventFilter(&m_key); }

  private:
    HelpKey m_key;
};

bool isActive(QWidget& window) {
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace

void TestHelpKey::pressesTheHelpButtonOfTheActiveWindow() {
    const KeyInPlace key;
    const HelpProbe help;
    QMainWindow frame;
    addHelpButton(&frame, u"frame.html"_s);
    frame.show();
    QDialog dialog(&frame);
    addHelpButton(&dialog, u"dialog.html"_s);
    auto* field = new QLineEdit(&dialog);
    dialog.open();
    QVERIFY(isActive(dialog));
    field->setFocus();

    QTest::keyClick(field, Qt::Key_F1);
    QCOMPARE(help.pages, QStringList{u"dialog.html"_s});
}

void TestHelpKey::childOfTheFrameComesFirst() {
    const KeyInPlace key;
    HelpProbe help;
    QMainWindow frame;
    auto* area = new QMdiArea;
    frame.setCentralWidget(area);
    auto* first = new QWidget;
    addHelpButton(first, u"first.html"_s);
    auto* second = new QWidget;
    addHelpButton(second, u"second.html"_s);
    QMdiSubWindow* firstWindow = area->addSubWindow(first);
    area->addSubWindow(second);
    area->addSubWindow(new QWidget);
    frame.show();
    QVERIFY(isActive(frame));

    area->setActiveSubWindow(firstWindow);
    QTest::keyClick(&frame, Qt::Key_F1);
    area->setActiveSubWindow(area->subWindowList().at(1));
    QTest::keyClick(&frame, Qt::Key_F1);
    area->setActiveSubWindow(area->subWindowList().at(2)); // it has no button
    QTest::keyClick(&frame, Qt::Key_F1);
    const QStringList expected{u"first.html"_s, u"second.html"_s, QString()};
    QCOMPARE(help.pages, expected);
}

void TestHelpKey::opensTheWholeHelpWithoutAButton() {
    const KeyInPlace key;
    HelpProbe help;
    QWidget window;
    QPushButton* button = addHelpButton(&window, u"window.html"_s);
    window.show();
    QVERIFY(isActive(window));

    button->setEnabled(false);
    QTest::keyClick(&window, Qt::Key_F1);
    button->setEnabled(true);
    button->hide();
    QTest::keyClick(&window, Qt::Key_F1);
    button->show();
    QTest::keyClick(&window, Qt::Key_F1);
    const QStringList expected{QString(), QString(), u"window.html"_s};
    QCOMPARE(help.pages, expected);
}

void TestHelpKey::opensThePageThatAWindowNames() {
    const KeyInPlace key;
    HelpProbe help;
    QWidget window;
    window.setProperty("helpTopic", u"topic.html"_s);
    window.show();
    QVERIFY(isActive(window));
    QTest::keyClick(&window, Qt::Key_F1);
    addHelpButton(&window, u"button.html"_s)->show();
    QTest::keyClick(&window, Qt::Key_F1);
    QCOMPARE(help.pages, (QStringList{u"topic.html"_s, u"button.html"_s}));
}

void TestHelpKey::knowsTheHelpButtonOfTheAboutBox() {
    const KeyInPlace key;
    const HelpProbe help;
    FAbout window(u"1"_s);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.open();
    QVERIFY(isActive(window));
    QTest::keyClick(&window, Qt::Key_F1);
    QCOMPARE(help.pages, QStringList{u"contatti.html"_s});
}

void TestHelpKey::explainsTheKeysInTheHelpItself() {
    const KeyInPlace key;
    const HelpProbe help;
    HelpWindow window(
        std::make_unique<HelpCollection>(QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc")));
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.showPage(u"Sistemi.html"_s);
    window.show();
    QVERIFY(isActive(window));
    QTest::keyClick(&window, Qt::Key_F1);
    QCOMPARE(help.pages, QStringList{u"tastiera.html#guida"_s});
}

void TestHelpKey::leavesOtherKeysAlone() {
    const KeyInPlace key;
    const HelpProbe help;
    QWidget window;
    addHelpButton(&window, u"window.html"_s);
    auto* field = new QLineEdit(&window);
    window.show();
    QVERIFY(isActive(window));
    QTest::keyClick(field, Qt::Key_F1, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_F2);
    QTest::keyClicks(field, u"1"_s);
    QVERIFY(help.pages.isEmpty());
    QCOMPARE(field->text(), u"1"_s);
}

} // namespace quor::test
