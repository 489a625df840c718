#include "toolkit/TestLateInput.h"

#include "toolkit/FileDialogs.h"
#include "toolkit/LateInput.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QCompleter>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::test {

namespace {

constexpr auto aWhile = 300ms; // longer than a button stays down

/// A window that is gone once it is closed, and the filter that watches over its buttons.
struct Form {
    Form() {
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setLayout(new QVBoxLayout);
        close = add(u"&Annulla"_s);
        open = add(u"&Colore"_s);
        QObject::connect(close, &QPushButton::clicked, window, &QDialog::reject);
        qApp->installEventFilter(&lateInput);
        window->show();
        window->activateWindow();
    }
    ~Form() { delete window; }
    Q_DISABLE_COPY_MOVE(Form)

    QPushButton* add(const QString& caption) const {
        auto* button = new QPushButton(caption);
        window->layout()->addWidget(button);
        return button;
    }
    void press(Qt::Key key) const { QTest::keyClick(window, key, Qt::AltModifier); }

    LateInput lateInput;
    QPointer<QDialog> window = new QDialog;
    QPushButton* close;
    QPushButton* open;
};

} // namespace

void TestLateInput::accessKeyClicks() {
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    form.press(Qt::Key_A);
    QVERIFY(form.close->isDown());
    QTRY_VERIFY(form.window == nullptr);
}

/// The window that asks for a colour stays until there is an answer, and closes then.
void TestLateInput::waitsForBoxAbove() {
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    QObject::connect(form.open, &QPushButton::clicked, form.window, [&form] {
        QVERIFY(!askColour(form.window, Qt::red, u"Scegli il colore"_s));
        QVERIFY(form.window != nullptr);
    });
    bool isThere = false;
    QTimer::singleShot(aWhile, qApp, [&form, &isThere] {
        auto* box = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        isThere = form.window != nullptr && form.window->isVisible();
        box->reject();
    });
    form.press(Qt::Key_A);
    QVERIFY(form.close->isDown());
    QTest::mouseClick(form.open, Qt::LeftButton);
    QVERIFY(isThere);
    QTRY_VERIFY(form.window == nullptr);
}

void TestLateInput::boxesAboveAreClicked() {
    const Form form;
    QDialog box(form.window);
    box.setLayout(new QVBoxLayout);
    auto* button = new QPushButton(u"&Sì"_s);
    box.layout()->addWidget(button);
    const QSignalSpy clicked(button, &QPushButton::clicked);
    box.open();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(clicked.count(), 1);
    QVERIFY(!button->isDown());
}

/// Two access keys in quick succession, the first of which closes the window.
void TestLateInput::nothingInClosedWindow() {
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    const QSignalSpy clicked(form.open, &QPushButton::clicked);
    const QPointer<QPushButton> open = form.open;
    form.window->setAttribute(Qt::WA_DeleteOnClose, false);
    form.press(Qt::Key_A);
    form.press(Qt::Key_C);
    QVERIFY(form.open->isDown());
    form.window->close();
    QTest::qWait(static_cast<int>(aWhile.count()));
    QCOMPARE(clicked.count(), 0);
    QVERIFY(!form.open->isDown());
}

/// A dialog need not be in the way of the whole program to be in the way of its own window.
void TestLateInput::waitsForDialogOfItsWindow() {
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    form.window->setAttribute(Qt::WA_DeleteOnClose, false); // the box lies on the stack
    QDialog box(form.window);
    form.press(Qt::Key_A);
    box.open();
    QCOMPARE(box.windowModality(), Qt::WindowModal);
    QTest::qWait(static_cast<int>(aWhile.count()));
    QVERIFY(form.window->isVisible());
    box.close();
    QTRY_VERIFY(!form.window->isVisible());
}

/// The help stays usable beside a box by belonging to it.
void TestLateInput::windowOfBoxDoesNotWait() {
    const Form form;
    QDialog box;
    box.setModal(true);
    box.show();
    form.window->windowHandle()->setTransientParent(box.windowHandle());
    QCOMPARE(QApplication::activeModalWidget(), &box);
    const QSignalSpy clicked(form.open, &QPushButton::clicked);
    form.open->animateClick();
    QTRY_COMPARE(clicked.count(), 1);
}

/// A box of one window keeps no button of another from its click.
void TestLateInput::windowBesideDoesNotWait() {
    QWidget other;
    other.show();
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    QDialog box(&other);
    const QSignalSpy clicked(form.open, &QPushButton::clicked);
    form.press(Qt::Key_C);
    box.open();
    QTRY_COMPARE(clicked.count(), 1);
}

void TestLateInput::closedWindowTakesNothing_data() {
    QTest::addColumn<bool>("isClosed");
    QTest::newRow("open") << false;
    QTest::newRow("closed") << true;
}

/// What was done while the program was busy, and comes when the window is closed already.
void TestLateInput::closedWindowTakesNothing() {
    QFETCH(bool, isClosed);
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    form.window->setAttribute(Qt::WA_DeleteOnClose, false);
    const QSignalSpy clicked(form.open, &QPushButton::clicked);
    form.open->setFocus();
    QWindow* window = form.window->windowHandle();
    const QPoint place = form.open->geometry().center();
    if (isClosed) {
        form.window->close();
    }
    QTest::mouseClick(window, Qt::LeftButton, {}, place);
    QCOMPARE(clicked.count(), isClosed ? 0 : 1);
    QTest::mouseDClick(window, Qt::LeftButton, {}, place);
    QTest::keyClick(window, Qt::Key_Space);
    QCOMPARE(clicked.count(), isClosed ? 0 : 4);
    QVERIFY(!form.open->isDown());
}

/// The list that completes a text has the keyboard, and hands on what is typed, also when it is
/// just gone.
void TestLateInput::closedListHandsKeysOn() {
    const Form form;
    auto* field = new QLineEdit;
    auto* completer = new QCompleter({u"carta.pdf"_s}, field);
    field->setCompleter(completer);
    form.window->layout()->addWidget(field);
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    field->setFocus();
    QTest::keyClicks(field, u"c"_s);
    QWidget* list = completer->popup();
    QTRY_VERIFY(list->isVisible());
    QTest::keyClick(list->windowHandle(), Qt::Key_A);
    QCOMPARE(field->text(), u"ca"_s);
    list->hide();
    QTest::keyClick(list->windowHandle(), Qt::Key_R);
    QCOMPARE(field->text(), u"car"_s);
}

} // namespace quor::test
