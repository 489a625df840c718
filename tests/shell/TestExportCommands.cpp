#include "shell/TestExportCommands.h"

#include "shell/FrameFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPushButton>

namespace quor::test {

namespace {

/// Starts an export of everything in the window.
void startExport(const QDialog& window) {
    for (const QString& check : {u"Check1"_s, u"Check2"_s, u"Check3"_s}) {
        window.findChild<QCheckBox*>(check)->setChecked(true);
    }
    window.findChild<QComboBox*>(u"Combo1"_s)->setCurrentIndex(0);
    window.findChild<QPushButton*>(u"Command1"_s)->click();
}

} // namespace

void TestExportCommands::exportWindowExistsOnce() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuEsporta);
    QPointer<QDialog> window = fixture.dialog(u"FEspBio"_s);
    QVERIFY(window != nullptr);
    QCOMPARE(window->windowTitle(), u"Esporta bioritmo di Maria Rossi"_s);
    QVERIFY(fixture.frame.isEnabled());
    fixture.frame.run(Command::mnuEsporta);
    QCOMPARE(fixture.frame.findChildren<QDialog*>(u"FEspBio"_s).size(), 1);
    window->close();
    QVERIFY(fixture.dialog(u"FEspBio"_s) == nullptr);
}

void TestExportCommands::printAndPreview() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuStampa);
    const auto caption = [&fixture] {
        return fixture.dialog(u"FStampaBio"_s)->findChild<QPushButton*>(u"Command1"_s)->text();
    };
    QCOMPARE(caption(), u"&Stampa"_s);
    fixture.frame.run(Command::mnuAnteprimaDiStampa);
    QCOMPARE(caption(), u"&Anteprima di stampa"_s);
    QCOMPARE(fixture.frame.findChildren<QDialog*>(u"FStampaBio"_s).size(), 1);
}

void TestExportCommands::closingTheBiorhythmClosesThem() {
    FrameFixture fixture;
    fixture.enter();
    fixture.program.state.modified = false;
    fixture.frame.run(Command::mnuEsporta);
    fixture.frame.run(Command::mnuStampa);
    fixture.expectClosing(Answer::yes);
    fixture.frame.run(Command::mnuChiudiBioritmo);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.dialog(u"FEspBio"_s) == nullptr);
    QVERIFY(fixture.dialog(u"FStampaBio"_s) == nullptr);
}

void TestExportCommands::exportRunDisablesTheFrame() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuEsporta);
    const QDialog* window = fixture.dialog(u"FEspBio"_s);
    startExport(*window);
    QVERIFY(!fixture.frame.isEnabled());
    QVERIFY(window->isEnabled());
    fixture.frame.close(); // neither ends nor asks
    QTRY_VERIFY(fixture.frame.isEnabled());
    QCOMPARE(fixture.ended.size(), 0);
    const QDir exports(fixture.program.state.exportFolder);
    QCOMPARE(exports.entryList(QDir::Files).size(), 6);
}

void TestExportCommands::closingTheOtherWindowDuringARun() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuStampa);
    fixture.frame.run(Command::mnuEsporta);
    startExport(*fixture.dialog(u"FEspBio"_s));
    QVERIFY(!fixture.frame.isEnabled());
    fixture.dialog(u"FStampaBio"_s)->close(); // its close box belongs to the desktop
    QVERIFY(fixture.dialog(u"FStampaBio"_s) == nullptr);
    QVERIFY(!fixture.frame.isEnabled());
    QTRY_VERIFY(fixture.frame.isEnabled());
    const QDir exports(fixture.program.state.exportFolder);
    QCOMPARE(exports.entryList(QDir::Files).size(), 6);
}

void TestExportCommands::endingInTheMiddleOfARun() {
    FrameFixture fixture;
    fixture.enter();
    fixture.frame.run(Command::mnuEsporta);
    startExport(*fixture.dialog(u"FEspBio"_s));
    QVERIFY(!fixture.frame.isEnabled());
    // The frame goes with its windows at the end of this function.
}

} // namespace quor::test
