#include "toolkit/TestDialogs.h"

#include "toolkit/Messages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Looks at the box that opens next, and closes it by its first button.
void atBox(const std::function<void(const QMessageBox&)>& look) {
    QTimer::singleShot(0, qApp, [look] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        look(*box);
        box->buttons().constFirst()->click();
    });
}

} // namespace

void TestDialogs::ordinaryTextIsShownAsItIs() {
    const QString text =
        u"Questo comporterà la chiusura del bioritmo di <b>Anna</b>. Si desidera continuare?\n\n"
        "/una/cartella/dentro/un'altra/e/ancora/una/Anna.bio"_s;
    QString shown;
    atBox([&shown](const QMessageBox& box) { shown = box.text(); });
    QCOMPARE(ask(nullptr, text, u"Conferma"_s), Answer::yes);
    QCOMPARE(shown, text);
}

/// Enter presses Yes, but where Yes destroys; Escape never does.
void TestDialogs::enterLosesNothing() {
    const auto press = [](int key) {
        QTimer::singleShot(0, qApp, [key] {
            QTest::keyClick(QApplication::activeModalWidget(), static_cast<Qt::Key>(key));
        });
    };
    press(Qt::Key_Return);
    QCOMPARE(ask(nullptr, u"Chiudere?"_s, u"Conferma"_s), Answer::yes);
    press(Qt::Key_Escape);
    QCOMPARE(ask(nullptr, u"Chiudere?"_s, u"Conferma"_s), Answer::no);
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        press(key);
        QCOMPARE(askBeforeLoss(nullptr, u"Eliminare?"_s, u"Conferma"_s), Answer::no);
    }
    press(Qt::Key_Return);
    QCOMPARE(askOrCancel(nullptr, u"Rifarle?"_s, u"Conferma"_s), Answer::yes);
    press(Qt::Key_Escape);
    QCOMPARE(askOrCancel(nullptr, u"Rifarle?"_s, u"Conferma"_s), Answer::cancel);
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    QCOMPARE(askOrCancel(nullptr, u"Rifarle?"_s, u"Conferma"_s), Answer::cancel);
    QTimer::singleShot(0, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        box->button(QMessageBox::No)->click();
    });
    QCOMPARE(askOrCancel(nullptr, u"Rifarle?"_s, u"Conferma"_s), Answer::no);
    const QStringList buttons{u"&Recupera"_s, u"&Elimina"_s, u"&Più tardi"_s};
    press(Qt::Key_Return);
    QCOMPARE(askChoice(nullptr, u"Recuperare?"_s, u"Recupero"_s, buttons), qsizetype{0});
    press(Qt::Key_Escape);
    QCOMPARE(askChoice(nullptr, u"Recuperare?"_s, u"Recupero"_s, buttons), qsizetype{2});
}

void TestDialogs::boxesStayOnTheScreen_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("one word") << QString(10'000, u'W');
    QTest::newRow("many words") << u"Bianca "_s.repeated(1500);
    QTest::newRow("markup") << u"<br>"_s.repeated(2500);
    QTest::newRow("many lines") << u"Bianca\n"_s.repeated(1500);
    QTest::newRow("pairs") << u"😀"_s.repeated(5000);
    QTest::newRow("right to left") << u"\u202E"_s + QString(5000, QChar(0x05D0));
}

/// Whatever the name, the box and its buttons can be reached, and the end of the question is read.
void TestDialogs::boxesStayOnTheScreen() {
    QFETCH(QString, name);
    QRect frame;
    QRect button;
    QString shown;
    atBox([&](const QMessageBox& box) {
        frame = box.frameGeometry();
        const QAbstractButton* first = box.buttons().constFirst();
        button = QRect(first->mapToGlobal(QPoint()), first->size());
        shown = box.text();
    });
    QCOMPARE(ask(nullptr, u"Rimuovere il bioritmo di %1 ?"_s.arg(name), u"Conferma"_s),
             Answer::yes);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY2(frame.width() <= screen.width() && frame.height() <= screen.height(),
             qPrintable(u"%1x%2"_s.arg(frame.width()).arg(frame.height())));
    QVERIFY(frame.contains(button));
    QVERIFY(shown.startsWith(u"Rimuovere il bioritmo di "_s));
    QVERIFY(shown.isValidUtf16());
}

} // namespace quor::test
