#include "export/TestFEspBio.h"

#include "export/FEsp.h"
#include "export/FEspBio.h"

#include "export/WindowFrame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTextDocument>

namespace quor::test {

namespace {

/// The window with its controls at hand.
struct Window : ExportFixture {
    [[nodiscard]] QCheckBox* check(int number) const {
        return control<QCheckBox>(*window, u"Check%1"_s.arg(number));
    }
    [[nodiscard]] QComboBox* type() const { return control<QComboBox>(*window, u"Combo1"_s); }
    [[nodiscard]] QPushButton* start() const {
        return control<QPushButton>(*window, u"Command1"_s);
    }
    [[nodiscard]] QStringList log() const {
        QStringList lines;
        const auto* list = control<QListWidget>(*window, u"List1"_s);
        for (int i = 0; i < list->count(); ++i) {
            lines << list->item(i)->text();
        }
        return lines;
    }
    [[nodiscard]] FEsp* progress() const { return window->findChild<FEsp*>(); }
    [[nodiscard]] QString status() const {
        return control<QLabel>(*progress(), u"Label1"_s)->text();
    }

    /// Chooses, starts, and lets the run end.
    void run(bool graph, bool weekly, bool page, int typeIndex) {
        choose(graph, weekly, page, typeIndex);
        start()->click();
        QVERIFY(!frame.window.isEnabled());
        QVERIFY(window->isEnabled()); // so that it can be closed
        QVERIFY(progress()->isEnabled());
        QVERIFY(QTest::qWaitFor([this] { return frame.window.isEnabled(); }));
    }
    void choose(bool graph, bool weekly, bool page, int typeIndex) const {
        check(1)->setChecked(graph);
        check(2)->setChecked(weekly);
        check(3)->setChecked(page);
        type()->setCurrentIndex(typeIndex);
    }

    QPointer<FEspBio> window = new FEspBio(program, frame, &frame.window);
};

const QString ok = u" --> Operazione eseguita correttamente"_s;

} // namespace

void TestFEspBio::opensWithNothingChosen() {
    const Window window;
    QCOMPARE(window.window->windowTitle(), u"Esporta bioritmo"_s);
    for (const int number : {1, 2, 3}) {
        QVERIFY(!window.check(number)->isChecked());
    }
    QVERIFY(!window.check(3)->isEnabled());
    QCOMPARE(window.type()->count(), 2);
    QCOMPARE(window.type()->itemText(0), u"Per pagina internet"_s);
    QCOMPARE(window.type()->itemText(1), u"Per stampa"_s);
    QCOMPARE(window.type()->currentIndex(), -1);
    QCOMPARE(window.log(), QStringList{u"In attesa"_s});
}

void TestFEspBio::pageNeedsAPicture() {
    const Window window;
    window.check(1)->click();
    QVERIFY(window.check(3)->isEnabled());
    QVERIFY(!window.check(3)->isChecked()); // its value is left as it is
    window.check(3)->click();
    window.check(2)->click();
    window.check(1)->click();
    QVERIFY(window.check(3)->isEnabled());
    QVERIFY(window.check(3)->isChecked());
    window.check(2)->click();
    QVERIFY(!window.check(3)->isEnabled());
    QVERIFY(!window.check(3)->isChecked());
}

void TestFEspBio::refusesToStartWithoutAChoice_data() {
    QTest::addColumn<bool>("graph");
    QTest::addColumn<int>("type");
    QTest::newRow("nothing") << false << -1;
    QTest::newRow("no product") << false << 0;
    QTest::newRow("no type") << true << -1;
}

void TestFEspBio::refusesToStartWithoutAChoice() {
    QFETCH(const bool, graph);
    QFETCH(const int, type);
    Window window;
    window.choose(graph, false, false, type);
    window.dialogs.expectBox(u"Errore"_s,
                             u"Seleziona cosa vuoi esportare ed il tipo di esportazione!"_s);
    window.start()->click();
    QVERIFY(window.dialogs.finished());
    QVERIFY(window.frame.window.isEnabled());
    QVERIFY(window.files().isEmpty());
    QVERIFY(window.progress() == nullptr);
}

void TestFEspBio::exportsForTheInternet() {
    Window window;
    window.run(true, false, true, 0);
    QCOMPARE(window.files(), (QStringList{u"Maria Rossi_15-03-2004_Riepilogo.html"_s,
                                          u"Maria Rossi_15-03-2004_grafico.png"_s}));
    QCOMPARE(window.log(),
             (QStringList{u"In attesa"_s, u"Grafico di Maria Rossi"_s + ok,
                          u"File di riepilogo di Maria Rossi --> Operazione completata"_s}));
    QCOMPARE(window.progress()->windowTitle(), u"Esporta Informazioni"_s);
    QCOMPARE(window.status(), u"Esportazioni completate"_s);
    const auto* bar = control<QProgressBar>(*window.progress(), u"ProgressBar1"_s);
    QCOMPARE(bar->maximum(), 2);
    QCOMPARE(bar->value(), 2);
    QVERIFY(window.start()->isEnabled()); // and once more, if wanted
}

void TestFEspBio::exportsForPrint() {
    Window window;
    window.run(false, true, false, 1);
    const QString prefix = u"Maria Rossi_15-03-2004_stampa_StatoSettimana%1.png"_s;
    QCOMPARE(window.files(),
             (QStringList{prefix.arg(0), prefix.arg(1), prefix.arg(2), prefix.arg(3)}));
    QCOMPARE(window.log(), QStringList{u"In attesa"_s} +
                               QStringList(4, u"Stato settimanale di Maria Rossi"_s + ok));
}

void TestFEspBio::exportsEveryMember() {
    Window window;
    AppState& state = window.program.state;
    state.systemOpen = true;
    state.systemFilePath = u"/dati/Famiglia.brs"_s;
    state.systemMembers = {{u"Ada"_s, 20000}, {u"Bice"_s, 30000}};
    state.systemCount = 2;
    state.exportWholeSystem = true;
    window.run(true, false, false, 0);
    QCOMPARE(window.files(), (QStringList{u"Famiglia_Ada_15-03-2004_grafico.png"_s,
                                          u"Famiglia_Bice_15-03-2004_grafico.png"_s}));
    QCOMPARE(window.log(),
             (QStringList{u"In attesa"_s, u"Grafico di Ada"_s + ok, u"Grafico di Bice"_s + ok}));
    QCOMPARE(window.program.biorhythm.name, u"Bice"_s);
}

void TestFEspBio::countsErrorsAndGoesOn() {
    Window window;
    window.program.state.exportFolder = window.folder.filePath(u"manca"_s);
    window.dialogs.expectBox(u"Quor"_s, u"2 errori rilevati!"_s);
    window.run(true, false, true, 0);
    QTRY_VERIFY(window.dialogs.finished());
    const QString failed = u" --> Errore: creazione del file impossibile"_s;
    QCOMPARE(window.log(), (QStringList{u"In attesa"_s, u"Grafico di Maria Rossi"_s + failed,
                                        u"File di riepilogo di Maria Rossi"_s + failed}));
    QCOMPARE(window.status(), u"Esportazioni completate"_s);
}

void TestFEspBio::everyRunHasTheSameProgressWindow() {
    Window window;
    window.window->show();
    window.run(true, true, false, 0);
    const FEsp* first = window.progress();
    QVERIFY(first->isVisible());
    window.run(true, false, false, 1); // the first is left open
    QCOMPARE(window.window->findChildren<FEsp*>(), QList<FEsp*>{window.progress()});
    QCOMPARE(window.progress(), first);
    const auto* bar = control<QProgressBar>(*window.progress(), u"ProgressBar1"_s);
    QCOMPARE(bar->maximum(), 1);
    QCOMPARE(bar->value(), 1);
    QCOMPARE(window.window->focusWidget(), window.start());

    window.progress()->close();
    window.run(true, false, false, 1);
    QTRY_COMPARE(window.window->findChildren<FEsp*>().size(), 1);
    QVERIFY(window.progress()->isVisible());
}

void TestFEspBio::logKeepsTheResultInSight() {
    Window window;
    window.program.biorhythm.name = u"Maria <b> "_s + QString(100, u'x');
    window.run(true, false, false, 0);
    const auto* list = control<QListWidget>(*window.window, u"List1"_s);
    QCOMPARE(list->accessibleName(), u"Stato delle operazioni"_s);
    QCOMPARE(list->textElideMode(), Qt::ElideMiddle);
    QTextDocument tip;
    tip.setHtml(list->item(1)->toolTip());
    QCOMPARE(tip.toPlainText(), window.log().at(1));
}

/// A file may bring a name of 64 KiB; the list would measure all of it whenever it is drawn.
void TestFEspBio::logCutsEndlessNames() {
    Window window;
    window.program.biorhythm.name = QString(65'000, u'x');
    window.run(true, false, false, 0);
    const QString line = window.log().at(1);
    QVERIFY(line.startsWith(u"Grafico di xxx"_s));
    QVERIFY(line.endsWith(u"xxx"_s + ok));
    QVERIFY(line.size() < 1100);
}

/// What the list cuts can be read whole in the tip, as far as anybody reads.
void TestFEspBio::tipsOfTheLogAreWhole() {
    Window window;
    window.program.biorhythm.name = QString(3000, u'x');
    window.run(true, false, false, 0);
    const auto* list = control<QListWidget>(*window.window, u"List1"_s);
    const QString tip = list->item(1)->toolTip();
    QVERIFY(tip.contains(QString(3000, u'x') + ok.toHtmlEscaped()));
}

void TestFEspBio::closingEndsTheRun() {
    Window window;
    window.choose(true, true, true, 0);
    window.start()->click();
    QVERIFY(!window.frame.window.isEnabled());
    window.window->show();
    window.window->close();
    QTRY_VERIFY(window.window == nullptr);
    QVERIFY(window.frame.window.isEnabled());
    QVERIFY(window.files().size() < 6);
}

/// Whoever disabled the frame for as long as the export window is open enables it again itself.
void TestFEspBio::aDisabledFrameStaysDisabled() {
    Window window;
    window.frame.window.setEnabled(false);
    window.window->setEnabled(true);
    window.choose(true, false, false, 0);
    window.start()->click();
    QTRY_COMPARE(window.files().size(), 1);
    QTRY_VERIFY(window.start()->isEnabled());
    QVERIFY(!window.frame.window.isEnabled());
}

void TestFEspBio::progressCannotBeClosedDuringARun() {
    FEsp progress;
    QCOMPARE(control<QLabel>(progress, u"Label1"_s)->text(),
             u"Apertura delle funzioni di esportazione"_s);
    const auto* close = control<QPushButton>(progress, u"Command1"_s);
    const auto* bar = control<QProgressBar>(progress, u"ProgressBar1"_s);
    progress.setAttribute(Qt::WA_DeleteOnClose, false);
    progress.show();
    progress.startRun(2, u"Un attimo"_s);
    QVERIFY(!close->isEnabled());
    QCOMPARE(bar->value(), 0);
    QCOMPARE(bar->maximum(), 2);
    progress.close();
    QVERIFY(progress.isVisible());
    progress.beginProduct(u"Grafico"_s);
    QCOMPARE(control<QLabel>(progress, u"Label1"_s)->text(), u"Grafico"_s);
    progress.endProduct();
    QCOMPARE(control<QLabel>(progress, u"Label1"_s)->text(), QString());
    QCOMPARE(bar->value(), 1);
    progress.finishRun();
    QVERIFY(close->isEnabled());
    progress.close();
    QVERIFY(!progress.isVisible());
}

} // namespace quor::test
