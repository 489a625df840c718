#include "toolkit/TestLateClicks.h"

#include "toolkit/FileDialogs.h"
#include "toolkit/LateClicks.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialog>
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
        qApp->installEventFilter(&lateClicks);
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

    LateClicks lateClicks;
    QPointer<QDialog> window = new QDialog;
    QPushButton* close;
    QPushButton* open;
};

} // namespace

void TestLateClicks::accessKeyClicks() {
    const Form form;
    QVERIFY(QTest::qWaitForWindowActive(form.window));
    form.press(Qt::Key_A);
    QVERIFY(form.close->isDown());
    QTRY_VERIFY(form.window == nullptr);
}

/// The window that asks for a colour stays until there is an answer, and closes then.
void TestLateClicks::waitsForBoxAbove() {
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

void TestLateClicks::boxesAboveAreClicked() {
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
void TestLateClicks::nothingInClosedWindow() {
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

/// A box of one window keeps no button of another from its click.
void TestLateClicks::windowBesideDoesNotWait() {
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

} // namespace quor::test
