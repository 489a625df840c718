#include "TestFFastStart.h"

#include "guidance/FFastStart.h"
#include "support/RecordingFrame.h"
#include "toolkit/SettingsStore.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString stored() {
    return getSetting(u"Options"_s, u"FastStart"_s);
}

class Fixture {
  public:
    explicit Fixture(const QString& setting = u"TRUE"_s) {
        resetToStartUp(program);
        program.state.fastStart = setting;
        saveSetting(u"Options"_s, u"FastStart"_s, setting);
        window = new FFastStart(program, frame);
        window->show();
        window->activateWindow();
    }
    ~Fixture() { delete window; }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    template<typename Control = QWidget> [[nodiscard]] Control* control(const QString& name) const {
        return window->findChild<Control*>(name);
    }
    void click(const QString& name) const { QTest::mouseClick(control(name), Qt::LeftButton); }
    [[nodiscard]] bool isGone() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.isNull();
    }

    Program program;
    RecordingFrame frame;
    QPointer<FFastStart> window;
};

/// Something is drawn there.
bool showsPicture(QWidget* control) {
    const QImage image = control->grab().toImage();
    const QRgb corner = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != corner) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

void TestFFastStart::textsAndPictures() {
    const Fixture fixture;
    QCOMPARE(fixture.window->windowTitle(), u"Quor Procedure guidate"_s);
    const auto text = [&](const QString& name) { return fixture.control<QLabel>(name)->text(); };
    QCOMPARE(text(u"Label4"_s), u"Cosa vuoi fare oggi?"_s);
    QCOMPARE(text(u"Label5"_s), u"Procedure guidate"_s);
    QCOMPARE(text(u"Label1"_s), u"Calcolare un nuovo bioritmo"_s);
    QCOMPARE(text(u"Label2"_s), u"Calcolare e gestire molti bioritmi"_s);
    QCOMPARE(text(u"Label3"_s), u"Calcolare la compatibilità bioritmica"_s);
    const auto caption = [&](const QString& name) {
        return fixture.control<QAbstractButton>(name)->text();
    };
    QCOMPARE(caption(u"Frame1"_s), u"Calcola un nuovo bioritmo"_s);
    QCOMPARE(caption(u"Frame2"_s), u"Aprire un sistema"_s);
    QCOMPARE(caption(u"Frame3"_s), u"Compatibilità bioritmica"_s);
    QCOMPARE(caption(u"Check1"_s), u"Mostra questa finestra al prossimo avvio"_s);
    QCOMPARE(caption(u"Command1"_s), u"Chiudi"_s);
    QCOMPARE(caption(u"Command2"_s), u"Mostrami come"_s);
    QCOMPARE(caption(u"Command3"_s), u"Mostrami come"_s);
    for (const QString& name : {u"Image1"_s, u"Image2"_s}) {
        QWidget* image = fixture.control(name);
        QVERIFY2(showsPicture(image), qPrintable(name));
        // Each choice holds its own picture and label.
        const auto* label = fixture.control(u"Label"_s + name.back());
        QCOMPARE(image->parentWidget(), fixture.control(u"Frame"_s + name.back()));
        QCOMPARE(label->parentWidget(), image->parentWidget());
    }
}

void TestFFastStart::choices_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("command");
    for (const QString& part : {u"Frame"_s, u"Image"_s, u"Label"_s}) {
        QTest::addRow("%s1", qPrintable(part)) << part + u'1' << u"run mnuCalcola"_s;
        QTest::addRow("%s2", qPrintable(part)) << part + u'2' << u"run mnuNuovoSistema"_s;
    }
}

void TestFFastStart::choices() {
    QFETCH(QString, control);
    QFETCH(QString, command);
    Fixture fixture;
    fixture.click(control);
    QCOMPARE(fixture.frame.calls, QStringList{command});
    QVERIFY(fixture.isGone());
}

void TestFFastStart::theThirdChoiceIsInert() {
    Fixture fixture;
    fixture.click(u"Frame3"_s);
    fixture.click(u"Label3"_s);
    QTest::keyClick(fixture.control(u"Frame3"_s), Qt::Key_Space);
    QTest::keyClick(fixture.control(u"Frame3"_s), Qt::Key_Return);
    QVERIFY(fixture.frame.calls.isEmpty());
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.window->isVisible());
}

void TestFFastStart::keyboard() {
    {
        const Fixture fixture;
        QStringList order;
        fixture.control(u"Frame1"_s)->setFocus();
        for (int i = 0; i < 7; ++i) {
            order << fixture.window->focusWidget()->objectName();
            QTest::keyClick(fixture.window->focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order, (QStringList{u"Frame1"_s, u"Command2"_s, u"Frame2"_s, u"Command3"_s,
                                     u"Frame3"_s, u"Check1"_s, u"Command1"_s}));
    }
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Fixture fixture;
        QTest::keyClick(fixture.control(u"Frame2"_s), key);
        QCOMPARE(fixture.frame.calls, QStringList{u"run mnuNuovoSistema"_s});
        QVERIFY(fixture.isGone());
    }
    // What is no choice goes by.
    Fixture fixture;
    QTest::keyClick(fixture.control(u"Frame2"_s), Qt::Key_A);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFFastStart::mostramiCome_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("call");
    QTest::newRow("a biorhythm") << u"Command2"_s << u"tour 1"_s;
    QTest::newRow("a system") << u"Command3"_s << u"tour 2"_s;
}

void TestFFastStart::mostramiCome() {
    QFETCH(QString, button);
    QFETCH(QString, call);
    Fixture fixture;
    fixture.click(button);
    QCOMPARE(fixture.frame.calls, QStringList{call});
    QVERIFY(fixture.isGone());
}

void TestFFastStart::aRunningTourKeepsItOpen() {
    Fixture fixture;
    fixture.program.state.guidedProcedureActive = 2; // the frame refuses another one
    fixture.click(u"Command2"_s);
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.window->isVisible());
}

void TestFFastStart::checkBoxFollowsTheSetting_data() {
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("checked");
    QTest::newRow("on") << u"TRUE"_s << true;
    QTest::newRow("off") << u"FALSE"_s << false;
    QTest::newRow("small letters") << u"true"_s << false;
    QTest::newRow("something else") << u"1"_s << false;
}

void TestFFastStart::checkBoxFollowsTheSetting() {
    QFETCH(QString, setting);
    QFETCH(bool, checked);
    const Fixture fixture(setting);
    QCOMPARE(fixture.control<QCheckBox>(u"Check1"_s)->isChecked(), checked);
    QCOMPARE(stored(), setting); // nothing is written before it closes
}

void TestFFastStart::storedWhenItCloses() {
    Fixture fixture;
    fixture.click(u"Check1"_s);
    QCOMPARE(stored(), u"TRUE"_s);
    fixture.click(u"Command1"_s);
    // At once, for a window opened again before this one is gone.
    QCOMPARE(stored(), u"FALSE"_s);
    QCOMPARE(fixture.program.state.fastStart, u"FALSE"_s);
    QVERIFY(fixture.isGone());
    QVERIFY(fixture.frame.calls.isEmpty());

    Fixture again(u"FALSE"_s);
    again.click(u"Check1"_s);
    again.click(u"Frame1"_s); // a choice closes it too
    QCOMPARE(stored(), u"TRUE"_s);
    QCOMPARE(again.program.state.fastStart, u"TRUE"_s);
}

void TestFFastStart::storedWhenTheProgramEnds() {
    const Fixture fixture;
    fixture.click(u"Check1"_s);
    delete fixture.window.data(); // as the frame does that it is a child of
    QCOMPARE(stored(), u"FALSE"_s);
}

void TestFFastStart::contentsStayTogetherWhenItIsLarge() {
    const Fixture fixture;
    fixture.window->resize(1600, 1200);
    QCoreApplication::processEvents();
    const QWidget* frame = fixture.control(u"Frame1"_s);
    const QPoint place = frame->mapTo(fixture.window.data(), QPoint(0, 0));
    QVERIFY(place.x() > 400);
    QVERIFY(place.y() > 300);
    QVERIFY(frame->width() < 600);
}

} // namespace quor::test
