#include "TestFProcGuid.h"

#include "guidance/FProcGuid.h"
#include "support/RecordingFrame.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

struct Step {
    QString text;
    QString picture; ///< what is said of it; empty for none
    QString lock;    ///< as the frame hears it
};

const QString& locked() {
    static const QString call = u"lock [] []"_s;
    return call;
}

const Step& lockNotice() {
    static const Step step{
        .text =
            u"Mentre è in corso la procedura guidata verranno abilitate solo le funzioni utili alla spiegazione. Al termine della procedura verranno riattivate completamente."_s,
        .picture = {},
        .lock = locked()};
    return step;
}

const Step& lastStep() {
    static const Step step{.text = u"Grazie per l'attenzione!"_s, .picture = {}, .lock = locked()};
    return step;
}

const QList<Step>& firstTour() {
    static const QString views =
        u"[mnuGrafico mnuStatoSettimanale mnuStatoOdierno mnuPrevisioni]"_s;
    static const QList<Step> steps{
        {.text =
             u"Questa procedura guidata vi illustrerà come calcolare un nuovo bioritmo e gestire tutte le funzionalità che Quor offre in questa sezione.\nPremere Next>> per continuare."_s,
         .picture = {},
         .lock = locked()},
        lockNotice(),
        {.text =
             u"Cliccando sull'icona rappresentata quì sopra, o sul menù Bioritmi->Nuovo Bioritmo verrà aperta questa finestra."_s,
         .picture = u"Pulsante: Calcola un nuovo Bioritmo"_s,
         .lock = u"lock [] [mnuCalcola]"_s},
        {.text =
             u"In questa finestra potete inserire il vostro nome e la vostra data di nascita.\nPremendo NEXT>> potrete attivare la finestra ed iniziare!"_s,
         .picture = {},
         .lock = locked()},
        {.text =
             u"Si sono aperte le finestre che avete deciso tra le opzioni della finestra di inserimento, calcolando i dati che avete appena inserito."_s,
         .picture = {},
         .lock = locked()},
        {.text =
             u"Con i bottoni della toolbar appena attivati potete aprire e chiudere le finestre in qualsiasi momento.\nPotete anche usare il menu Bioritmi-> per lo stesso scopo."_s,
         .picture = {},
         .lock = u"lock %1 %1"_s.arg(views)},
        {.text =
             u"Adesso con il bottone raffigurato quì sopra, o sul menù Bioritmi->Salva Bioritmo, potete salvare i vostri dati."_s,
         .picture = u"Pulsante: Salva il bioritmo"_s,
         .lock = u"lock [mnuSalvaBioritmo] [mnuSalvaBioritmo]"_s},
        {.text =
             u"Per leggere bene i grafici, o per funzioni come la stampa e l'esportazione si rimanda alla guida attivabile con l'icona di aiuto."_s,
         .picture = u"Pulsante: File di guida"_s,
         .lock = u"lock [mnuHlpCompleto] [mnuHlpCompleto]"_s},
        lastStep(),
    };
    return steps;
}

const QList<Step>& secondTour() {
    static const QList<Step> steps{
        {.text =
             u"Questa procedura guidata vi illustrerà come calcolare molti bioritmi contemporaneamente e gestire un sistema.\nPremere Next>> per continuare."_s,
         .picture = {},
         .lock = locked()},
        lockNotice(),
        {.text =
             u"Cliccando sull'icona rappresentata quì sopra, o sul menù File->Nuovo Sistema verrà aperta questa finestra."_s,
         .picture = u"Pulsante: Calcola un nuovo sistema"_s,
         .lock = u"lock [] [mnuNuovoSistema]"_s},
        {.text =
             u"Questa finestra vi darà la possibilità di inserire e rimuovere bioritmi, e di eseguire operazioni sui singoli bioritmi o sul sistema."_s,
         .picture = {},
         .lock = locked()},
        {.text =
             u"Per adesso potrete solo inserire bioritmi nel sistema. Cliccate Inserisci nuovo, per calcolarne uno da zero, o Inserisci Esistente per caricarne uno."_s,
         .picture = {},
         .lock = u"lock [] [] members"_s},
        lastStep(),
    };
    return steps;
}

class Fixture {
  public:
    explicit Fixture(std::uint8_t number, QWidget* parent = nullptr) {
        resetToStartUp(program);
        program.state.guidedProcedureActive = number;
        window = new FProcGuid(program, frame, parent);
        window->show();
    }
    ~Fixture() { delete window; }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    [[nodiscard]] QPushButton* button() const {
        return window->findChild<QPushButton*>(u"Command1"_s);
    }
    void next(int times = 1) const {
        for (int i = 0; i < times; ++i) {
            QTest::mouseClick(button(), Qt::LeftButton);
        }
    }
    /// What the dialog for a new biorhythm does when it has stored one.
    void enterBiorhythm() {
        program.state.guidedStepDone = true;
        window->entryFinished();
    }
    [[nodiscard]] QString text() const {
        return window->findChild<QPlainTextEdit*>(u"Text1"_s)->toPlainText();
    }
    [[nodiscard]] Step shown() const {
        const auto* image = window->findChild<QLabel*>(u"Image1"_s);
        return {.text = text(),
                .picture = image->isVisible() ? image->accessibleName() : QString(),
                .lock = frame.calls.isEmpty() ? QString() : frame.calls.constLast()};
    }
    [[nodiscard]] bool isGone() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.isNull();
    }
    /// Everything is as if there had never been a tour.
    [[nodiscard]] bool endedWell() const {
        return frame.calls.count(u"unlock"_s) == 1 && frame.calls.constLast() == u"unlock"_s &&
               program.state.guidedProcedureActive == 0 && !program.state.guidedStepDone;
    }

    Program program;
    RecordingFrame frame;
    QPointer<FProcGuid> window;
};

bool isStep(const Step& seen, const Step& expected) {
    if (seen.text == expected.text && seen.picture == expected.picture &&
        seen.lock == expected.lock) {
        return true;
    }
    qCritical().noquote() << seen.text << u'|' << seen.picture << u'|' << seen.lock;
    return false;
}

} // namespace

void TestFProcGuid::theTableKnowsTwoTours() {
    QCOMPARE(tourSteps(1).size(), std::size_t{9});
    QCOMPARE(tourSteps(2).size(), std::size_t{6});
    for (const std::uint8_t number : {std::uint8_t{0}, std::uint8_t{3}, std::uint8_t{255}}) {
        QVERIFY(tourSteps(number).empty());
    }
}

void TestFProcGuid::theWindow() {
    const Fixture fixture(1);
    QCOMPARE(fixture.window->windowTitle(), u"Procedura guidata"_s);
    QCOMPARE(fixture.window->findChild<QLabel*>(u"Label1"_s)->text(), u"Procedura guidata"_s);
    QVERIFY(fixture.window->findChild<QLabel*>(u"Picture1"_s)->isVisible());
    QVERIFY(fixture.window->findChild<QPlainTextEdit*>(u"Text1"_s)->isReadOnly());
    QVERIFY(fixture.button()->isDefault());
    QVERIFY(!fixture.window->isModal());
}

void TestFProcGuid::firstTourToTheEnd() {
    Fixture fixture(1);
    for (qsizetype i = 0; i < firstTour().size(); ++i) {
        QVERIFY2(isStep(fixture.shown(), firstTour()[i]), qPrintable(QString::number(i + 1)));
        const bool last = i + 1 == firstTour().size();
        QCOMPARE(fixture.button()->text(), last ? u"FINE"_s : u"NEXT >>"_s);
        fixture.next();
        if (i == 3) {
            QCOMPARE(fixture.frame.calls.constLast(), u"open mnuCalcola"_s);
            fixture.enterBiorhythm();
        }
        QCOMPARE(fixture.program.state.guidedProcedureActive, std::uint8_t(last ? 0 : 1));
    }
    QVERIFY(fixture.endedWell());
    QVERIFY(fixture.isGone());
}

void TestFProcGuid::secondTourToTheEnd() {
    Fixture fixture(2);
    for (qsizetype i = 0; i < secondTour().size(); ++i) {
        QVERIFY2(isStep(fixture.shown(), secondTour()[i]), qPrintable(QString::number(i + 1)));
        const bool last = i + 1 == secondTour().size();
        QCOMPARE(fixture.button()->text(), last ? u"FINE"_s : u"NEXT >>"_s);
        fixture.next();
        QCOMPARE(fixture.frame.calls.count(u"open mnuNuovoSistema"_s), i < 2 ? 0 : 1);
    }
    QVERIFY(fixture.endedWell());
    QVERIFY(fixture.isGone());
}

void TestFProcGuid::waitsForTheBiorhythm() {
    Fixture fixture(1);
    fixture.next(4);
    QVERIFY(!fixture.window->isEnabled());
    QVERIFY(!fixture.program.state.guidedStepDone);
    QCOMPARE(fixture.text(), firstTour()[3].text);
    fixture.next(); // has no effect
    QCOMPARE(fixture.text(), firstTour()[3].text);
    QCOMPARE(fixture.frame.calls.count(u"open mnuCalcola"_s), 1);
    fixture.enterBiorhythm();
    QVERIFY(fixture.window->isEnabled());
    QCOMPARE(fixture.text(), firstTour()[4].text);
    // The entry is asked for once: another one that closes changes nothing.
    fixture.window->entryFinished();
    QCOMPARE(fixture.text(), firstTour()[4].text);
}

void TestFProcGuid::theEntryCanBeClosedWhileNothingIsAsked() {
    // That is what the dialog for a new biorhythm looks at.
    const Fixture first(1);
    QVERIFY(first.program.state.guidedStepDone);
    const Fixture second(2);
    second.next(4);
    QVERIFY(second.program.state.guidedStepDone);
    second.window->entryFinished();
    QCOMPARE(second.text(), secondTour()[4].text);
}

void TestFProcGuid::endsWell_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("steps");
    for (int step = 0; step < 4; ++step) {
        QTest::addRow("first tour, step %d", step + 1) << 1 << step;
    }
    QTest::newRow("first tour, waiting") << 1 << 4;
    for (int step = 0; step < 6; ++step) {
        QTest::addRow("second tour, step %d", step + 1) << 2 << step;
    }
}

void TestFProcGuid::endsWell() {
    QFETCH(int, number);
    QFETCH(int, steps);
    const std::array<std::function<void(FProcGuid*)>, 3> ways{
        [](FProcGuid* window) { window->close(); },                         // its close box
        [](FProcGuid* window) { QTest::keyClick(window, Qt::Key_Escape); }, //
        [](FProcGuid* window) { delete window; },                           // the program's end
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        Fixture fixture(static_cast<std::uint8_t>(number));
        fixture.next(steps);
        if (way == 1 && !fixture.window->isEnabled()) {
            continue; // no key reaches it
        }
        ways.at(way)(fixture.window);
        QVERIFY(fixture.endedWell());
        QVERIFY(fixture.isGone());
    }
}

void TestFProcGuid::aRefusalEndsIt() {
    for (const auto& [number, steps] : {std::pair{1, 4}, std::pair{2, 3}}) {
        Fixture fixture(static_cast<std::uint8_t>(number));
        fixture.frame.opensForTour = false;
        fixture.next(steps);
        QVERIFY(fixture.endedWell());
        QVERIFY(fixture.isGone());
    }
}

void TestFProcGuid::aClosedSystemEndsIt() {
    for (const int steps : {3, 4}) {
        Fixture fixture(2);
        fixture.next(steps);
        fixture.window->systemClosed();
        QVERIFY(fixture.endedWell());
        QVERIFY(fixture.isGone());
    }
    // At the last step it is no longer needed.
    Fixture fixture(2);
    fixture.next(5);
    fixture.window->systemClosed();
    QVERIFY(!fixture.isGone());
    QCOMPARE(fixture.text(), lastStep().text);
}

void TestFProcGuid::aClosedSystemBeforeItIsNeeded() {
    for (const std::uint8_t number : {std::uint8_t{1}, std::uint8_t{2}}) {
        Fixture fixture(number);
        fixture.next(2);
        fixture.window->systemClosed();
        QVERIFY(!fixture.isGone());
        QCOMPARE(fixture.program.state.guidedProcedureActive, number);
    }
}

void TestFProcGuid::anEntryThatGoesWithoutABiorhythmEndsIt() {
    Fixture fixture(1);
    fixture.next(4);
    fixture.window->entryFinished();
    QVERIFY(fixture.endedWell());
    QVERIFY(fixture.isGone());
}

void TestFProcGuid::deletedByTheOpening() {
    // A question that the opening asks may outlive the window.
    class EndingFrame : public RecordingFrame {
      public:
        bool openForTour(Command /*command*/) override {
            delete window;
            return true;
        }
        QPointer<FProcGuid> window;
    };
    EndingFrame frame;
    Program program;
    resetToStartUp(program);
    program.state.guidedProcedureActive = 2;
    frame.window = new FProcGuid(program, frame, nullptr);
    const QPointer<QPushButton> button = frame.window->findChild<QPushButton*>(u"Command1"_s);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!button.isNull());
        button->click();
    }
    QVERIFY(frame.window.isNull());
    QCOMPARE(program.state.guidedProcedureActive, std::uint8_t{0});
}

void TestFProcGuid::theSizeStays() {
    Fixture fixture(1);
    const QSize size = fixture.window->size();
    const auto* edit = fixture.window->findChild<QPlainTextEdit*>(u"Text1"_s);
    for (int i = 0; i < 9; ++i) {
        QCoreApplication::processEvents();
        QCOMPARE(fixture.window->size(), size);
        QVERIFY(edit->document()->size().height() * edit->fontMetrics().lineSpacing() <=
                edit->viewport()->height()); // every line can be seen
        fixture.next();
        if (i == 3) {
            fixture.enterBiorhythm();
        }
    }
}

void TestFProcGuid::placedInTheCornerOfTheFrame() {
    QWidget parent;
    const QRect screen = parent.screen()->availableGeometry();
    parent.setGeometry(screen.left() + 20, screen.top() + 20, 700, 500);
    parent.show();
    const Fixture inside(1, &parent);
    QVERIFY(parent.geometry().contains(inside.window->frameGeometry()));
    QVERIFY(inside.window->frameGeometry().top() > parent.geometry().center().y());
    QVERIFY(inside.window->frameGeometry().right() > parent.geometry().center().x() + 250);

    // A frame that reaches out of the screen takes nothing along.
    parent.setGeometry(screen.right() - 200, screen.bottom() - 200, 700, 500);
    const Fixture clamped(2, &parent);
    QVERIFY(screen.contains(clamped.window->frameGeometry()));
}

} // namespace quor::test
