#include "shell/TestFIns.h"

#include "core/Clock.h"
#include "shell/FIns.h"
#include "toolkit/ShowHelp.h"

#include "support/Hermetic.h"
#include "support/RecordingFrame.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QString& refusal() {
    static const QString text =
        u"Nome non presente o formato date errato. Possibili date sono 25/12/1981 o 13 Nov 1945 o 05-06-85"_s;
    return text;
}

class Fixture {
  public:
    Fixture() { resetToStartUp(program); }
    ~Fixture() { delete dialog; }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    void open() {
        dialog = new FIns(program, frame, nullptr);
        dialog->open();
    }
    [[nodiscard]] QLineEdit* field(const QString& name) const {
        return dialog->findChild<QLineEdit*>(name);
    }
    void type(const QString& name, const QString& birth, const QString& calculation) const {
        field(u"Text3"_s)->setText(name);
        field(u"Text1"_s)->setText(birth);
        field(u"Text2"_s)->setText(calculation);
    }
    void click(const QString& button) const {
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    [[nodiscard]] QCheckBox* check(const QString& name) const {
        return dialog->findChild<QCheckBox*>(name);
    }
    [[nodiscard]] bool isGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return dialog.isNull();
    }

    FixedClock clock{QDate(2026, 11, 21)};
    Program program;
    RecordingFrame frame;
    QPointer<FIns> dialog;
};

} // namespace

void TestFIns::opensWithTheRecord() {
    Fixture fixture;
    fixture.program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    fixture.program.biorhythm.openForecasts = true;
    fixture.program.biorhythm.name = u"Maria"_s;
    fixture.open();
    QCOMPARE(fixture.dialog->windowTitle(), u"Inserimento"_s);
    QCOMPARE(fixture.field(u"Text2"_s)->text(), u"15/03/2004"_s);
    QVERIFY(fixture.field(u"Text1"_s)->text().isEmpty());
    QVERIFY(fixture.field(u"Text3"_s)->text().isEmpty());
    QVERIFY(fixture.check(u"Check1"_s)->isChecked());
    QVERIFY(!fixture.check(u"Check4"_s)->isChecked());
    QVERIFY(!fixture.check(u"Check2"_s)->isChecked());
    QVERIFY(fixture.check(u"Check3"_s)->isChecked());
}

void TestFIns::todayWhenThereIsNoDate() {
    Fixture fixture;
    fixture.program.biorhythm.calculationDate = 0; // as closing a biorhythm leaves it
    fixture.open();
    QCOMPARE(fixture.field(u"Text2"_s)->text(), u"21/11/2026"_s);
}

void TestFIns::okStoresAndApplies() {
    Fixture fixture;
    fixture.open();
    fixture.type(u"  Maria Rossi  "_s, u"25/12/1981"_s, u" 13 Nov 1945 "_s);
    fixture.click(u"Command2"_s);
    QVERIFY(fixture.isGone());
    const Biorhythm& biorhythm = fixture.program.biorhythm;
    QCOMPARE(biorhythm.name, u"Maria Rossi"_s);
    QCOMPARE(toQDate(biorhythm.birthDate), QDate(1981, 12, 25));
    QCOMPARE(toQDate(biorhythm.calculationDate), QDate(1945, 11, 13));
    QVERIFY(fixture.program.state.modified);
    QVERIFY(!fixture.program.state.guidedStepDone);
    QCOMPARE(fixture.frame.calls, QStringList{u"apply"_s});
}

void TestFIns::refusals_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("birth");
    QTest::addColumn<QString>("calculation");
    QTest::newRow("blank name") << u"   "_s << u"25/12/1981"_s << u"15/03/2004"_s;
    QTest::newRow("no name") << QString() << u"25/12/1981"_s << u"15/03/2004"_s;
    QTest::newRow("no such day") << u"Maria"_s << u"31/02/2000"_s << u"15/03/2004"_s;
    QTest::newRow("no birth") << u"Maria"_s << QString() << u"15/03/2004"_s;
    QTest::newRow("oggi") << u"Maria"_s << u"25/12/1981"_s << u"oggi"_s;
}

void TestFIns::refusals() {
    QFETCH(QString, name);
    QFETCH(QString, birth);
    QFETCH(QString, calculation);
    Fixture fixture;
    fixture.open();
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Errore"_s, refusal());
    fixture.type(name, birth, calculation);
    fixture.click(u"Command2"_s);
    QVERIFY(dialogs.finished());
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.dialog->isVisible());
    QCOMPARE(fixture.field(u"Text3"_s)->text(), name);
    QCOMPARE(fixture.field(u"Text1"_s)->text(), birth);
    QCOMPARE(fixture.field(u"Text2"_s)->text(), calculation);
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFIns::checkBoxesWriteAtOnce() {
    Fixture fixture;
    fixture.open();
    fixture.check(u"Check1"_s)->click();
    QVERIFY(!fixture.program.biorhythm.openGraph);
    fixture.check(u"Check4"_s)->click();
    QVERIFY(fixture.program.biorhythm.openWeekly);
    fixture.check(u"Check2"_s)->click();
    QVERIFY(fixture.program.biorhythm.openStatistics);
    fixture.check(u"Check3"_s)->click();
    QVERIFY(fixture.program.biorhythm.openForecasts);
    // A choice survives a cancelled dialog.
    fixture.click(u"Command3"_s);
    QVERIFY(fixture.isGone());
    fixture.open();
    QVERIFY(!fixture.check(u"Check1"_s)->isChecked());
    QVERIFY(fixture.check(u"Check4"_s)->isChecked());
}

void TestFIns::cancelStoresNothing() {
    Fixture fixture;
    fixture.open();
    fixture.type(u"Maria"_s, u"25/12/1981"_s, u"15/03/2004"_s);
    fixture.click(u"Command3"_s);
    QVERIFY(fixture.isGone());
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFIns::setToToday() {
    Fixture fixture;
    fixture.open();
    fixture.type(u"Maria"_s, u"25/12/1981"_s, u"nonsense"_s);
    QCOMPARE(fixture.dialog->findChild<QPushButton*>(u"Command1"_s)->text(), u"&Imposta ad oggi"_s);
    fixture.click(u"Command1"_s);
    QCOMPARE(fixture.field(u"Text2"_s)->text(), u"21/11/2026"_s);
    QVERIFY(fixture.dialog->isVisible());
}

void TestFIns::aTourHoldsItOpen() {
    Fixture fixture;
    fixture.program.state.guidedProcedureActive = 1;
    fixture.open();
    fixture.dialog->close();
    fixture.click(u"Command3"_s);
    QTest::keyClick(fixture.dialog, Qt::Key_Escape);
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.dialog->isVisible());
    fixture.type(u"Maria"_s, u"25/12/1981"_s, u"15/03/2004"_s);
    fixture.click(u"Command2"_s);
    QVERIFY(fixture.program.state.guidedStepDone);
    QVERIFY(fixture.isGone());
}

void TestFIns::readableWithALargeFont() {
    const QFont normal = QApplication::font();
    QFont large = normal;
    large.setPointSize(20);
    QApplication::setFont(large);
    Fixture fixture;
    fixture.open();
    fixture.dialog->resize(1, 1); // as small as it gets
    QCoreApplication::processEvents();
    const QLineEdit* date = fixture.field(u"Text2"_s);
    QVERIFY(date->width() > date->fontMetrics().horizontalAdvance(date->text()));
    const auto* label = fixture.dialog->findChild<QLabel*>(u"LabelOptions"_s);
    QVERIFY(label->height() >= label->heightForWidth(label->width()));
    QApplication::setFont(normal);
}

void TestFIns::helpButton() {
    Fixture fixture;
    fixture.open();
    QString asked;
    setHelpViewer([&](QWidget* /*window*/, const QString& path) { asked = path; });
    fixture.click(u"Command4"_s);
    setHelpViewer({});
    QVERIFY(asked.endsWith(u"/Quor.chm::/1nuovo.html"_s));
    QVERIFY(fixture.dialog->isVisible());
}

} // namespace quor::test
