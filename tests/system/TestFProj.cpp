#include "system/TestFProj.h"

#include "core/Clock.h"
#include "system/FProj.h"
#include "system/SystemFixture.h"
#include "system/SystemTreeModel.h"
#include "toolkit/ShowHelp.h"
#include "toolkit/ToolTipText.h"
#include "views/analysis/FStat.h"

#include "support/RecordingFrame.h"
#include "support/ScriptedDialogs.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProxyStyle>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>

#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A frame with a window of its own to disable, and whose commands can do something.
class Frame : public RecordingFrame {
  public:
    [[nodiscard]] QWidget* widget() override { return &window; }
    void run(Command command) override {
        RecordingFrame::run(command);
        if (onRun) {
            onRun();
        }
    }

    void closeBiorhythm() override {
        RecordingFrame::closeBiorhythm();
        if (onCloseBiorhythm) {
            onCloseBiorhythm();
        }
    }

    QWidget window;
    std::function<void()> onRun;
    std::function<void()> onCloseBiorhythm;
};

/// The system window, shown, over members of the given names.
class Fixture {
  public:
    explicit Fixture(const QStringList& names = {})
        : program(programWith(names))
        , window(new FProj(program, frame)) {
        if (!names.isEmpty()) {
            window->fillTree();
        }
        window->show();
        frame.calls.clear();
    }
    ~Fixture() {
        qDeleteAll(frame.shown);
        delete window;
    }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    Fixture(Fixture&&) = delete;
    Fixture& operator=(Fixture&&) = delete;

    [[nodiscard]] QAbstractButton* button(const QString& name) const {
        return window->findChild<QAbstractButton*>(name);
    }
    [[nodiscard]] QTreeView* tree() const { return window->findChild<QTreeView*>(u"TreeView1"_s); }
    [[nodiscard]] QModelIndex member(int row) const { return tree()->model()->index(row, 0); }
    [[nodiscard]] QModelIndex leaf(int row, int view) const {
        return tree()->model()->index(view, 0, member(row));
    }
    [[nodiscard]] QStringList branches() const {
        QStringList texts;
        for (int row = 0; row < tree()->model()->rowCount(); ++row) {
            texts << member(row).data().toString();
        }
        return texts;
    }
    void select(const QModelIndex& node) const { tree()->setCurrentIndex(node); }
    /// A mouse click on the text of a node.
    void click(const QModelIndex& node) const {
        QTest::mouseClick(viewport(), Qt::LeftButton, {}, place(node));
    }
    [[nodiscard]] QWidget* viewport() const { return tree()->viewport(); }
    [[nodiscard]] QPoint place(const QModelIndex& node) const {
        tree()->expand(node.parent());
        tree()->scrollTo(node);
        return tree()->visualRect(node).center();
    }
    void press(const QString& name) const { QTest::mouseClick(button(name), Qt::LeftButton); }

    void enter(const QString& name, QDate birth = {1990, 1, 1}) {
        program.biorhythm.name = name;
        program.biorhythm.birthDate = toDateValue(birth);
        window->addMember(name);
    }

    /// The buttons, of all that wait for members, that are usable.
    [[nodiscard]] QStringList enabledButtons() const {
        QStringList names;
        for (const int number : {4, 5, 6, 7, 12, 13, 14, 15}) {
            const QString name = u"Command%1"_s.arg(number);
            if (button(name)->isEnabledTo(window)) {
                names << name;
            }
        }
        return names;
    }

    /// Of all buttons and the tree, what can be used.
    [[nodiscard]] QStringList usable() const {
        QStringList names;
        for (int number = 1; number <= 15; ++number) {
            const QString name = u"Command%1"_s.arg(number);
            if (button(name)->isEnabled()) {
                names << name;
            }
        }
        if (tree()->isEnabled()) {
            names << u"TreeView1"_s;
        }
        return names;
    }

    void expectClosing(Answer answer) {
        dialogs.expectQuestion(u"Conferma"_s,
                               u"Questo comporterà la chiusura del sistema aperto attualmente. Si "
                               "desidera continuare ugualmente?"_s,
                               answer);
    }
    void expectSaving(Answer answer) {
        dialogs.expectQuestion(u"Conferma"_s,
                               u"Sono presenti dati non salvati. Si desidera salvare prima di "
                               "chiudere il sistema ?"_s,
                               answer);
    }
    void expectExportWarning() {
        dialogs.expectBox(
            u"Avviso"_s,
            u"Durante l'esportazione non sarà possibile effettuare cambiamenti sul sistema.\n"
            "Il controllo del sistema sarà ripristinato con la chiusura della finestra "
            "esportazioni."_s);
    }
    [[nodiscard]] bool isGone() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.isNull();
    }

    FixedClock clock{QDate(2026, 11, 21)};
    ScriptedDialogs dialogs;
    Program program;
    Frame frame;
    QPointer<FProj> window;
};

const QStringList& systemButtons() {
    static const QStringList names{u"Command4"_s, u"Command5"_s, u"Command6"_s, u"Command7"_s};
    return names;
}

const QStringList& allButtons() {
    static const QStringList names = systemButtons() + QStringList{u"Command12"_s, u"Command13"_s,
                                                                   u"Command14"_s, u"Command15"_s};
    return names;
}

class SingleClickStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_ItemView_ActivateItemOnSingleClick
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

QChar accessKey(const QString& text) {
    const qsizetype ampersand = text.indexOf(u'&');
    return ampersand < 0 ? QChar() : text.at(ampersand + 1).toLower();
}

} // namespace

void TestFProj::opensTheSystem() {
    Program program = programWith({});
    Frame frame;
    const FProj window(program, frame);
    QVERIFY(program.state.systemOpen);
    QCOMPARE(window.windowTitle(), u"Sistema corrente"_s);
    QVERIFY(frame.calls.contains(u"menu mnuBioritmi off"_s));
    QVERIFY(frame.calls.contains(u"tool 3 on"_s));
}

void TestFProj::captionsAndTips() {
    const Fixture fixture;
    const QList<std::pair<QString, QString>> captions{
        {u"Command1"_s, u"Inserisci &nuovo"_s},
        {u"Command2"_s, u"Inserisci un bioritmo &esistente"_s},
        {u"Command7"_s, u"&Rimuovi"_s},
        {u"Command5"_s, u"Grafico"_s},
        {u"Command6"_s, u"Statistiche"_s},
        {u"Command4"_s, u"Previsioni"_s},
        {u"Command8"_s, u"&Compatibilità bioritmica"_s},
        {u"Command10"_s, u"&Grafici e colori"_s},
        {u"Command3"_s, u"&Sposta data di calcolo"_s},
        {u"Command12"_s, u"Esporta"_s},
        {u"Command13"_s, u"Esporta come file bioritmo"_s},
        {u"Command14"_s, u"Esporta tutto il sistema"_s},
        {u"Command15"_s, u"Stampa"_s},
        {u"Command11"_s, u"Chiudi"_s},
        {u"Command9"_s, u"&?"_s}};
    for (const auto& [name, caption] : captions) {
        QCOMPARE(fixture.button(name)->text(), caption);
    }
    const QList<std::pair<QString, QString>> tips{
        {u"Command5"_s, u"Grafico della media del sistema"_s},
        {u"Command6"_s, u"Statische del sistema"_s},
        {u"Command4"_s, u"Previsioni del sistema. ATTENZIONE: questo calcolo potrebbe prendere "
                        "alcuni secondi"_s}};
    for (const auto& [name, tip] : tips) {
        QCOMPARE(fixture.button(name)->toolTip(), tip);
        QVERIFY(!fixture.button(name)->icon().isNull());
        QVERIFY(!fixture.button(name)->accessibleName().isEmpty());
    }
    const QStringList frames{u"Bioritmi nel sistema"_s,
                             u"Bioritmo di sistema"_s,
                             u"Opzioni"_s,
                             u"Principale"_s,
                             u"Esporta"_s,
                             u"Stampa"_s};
    for (int i = 0; i < 6; ++i) {
        const auto* frame = fixture.window->findChild<QGroupBox*>(u"Frame%1"_s.arg(i + 1));
        QCOMPARE(frame->title(), frames.at(i));
    }
}

void TestFProj::accessKeysAndTabOrder() {
    const Fixture fixture({u"Anna"_s});
    QList<QChar> keys;
    for (const auto* button : fixture.window->findChildren<QAbstractButton*>()) {
        if (const QChar key = accessKey(button->text()); !key.isNull()) {
            QVERIFY2(!keys.contains(key), qPrintable(button->text()));
            keys << key;
        }
    }
    QCOMPARE(keys.size(), 8);

    QStringList order;
    for (const QWidget* widget = fixture.tree(); !order.contains(widget->objectName());
         widget = widget->nextInFocusChain()) {
        if (widget->objectName().startsWith(u"Command"_s)) {
            order << widget->objectName();
        }
        if (order.size() == 16) {
            break;
        }
    }
    QCOMPARE(order.join(u' ').remove(u"Command"_s), u"Open 1 2 7 5 6 4 8 12 13 14 15 10 3 9 11"_s);
}

void TestFProj::tabsChooseTheFrames() {
    const Fixture fixture;
    auto* tabs = fixture.window->findChild<QTabWidget*>(u"TabStrip1"_s);
    QCOMPARE(tabs->count(), 3);
    const auto visibleFrames = [&fixture] {
        QList<int> frames;
        for (int i = 1; i <= 6; ++i) {
            if (fixture.window->findChild<QGroupBox*>(u"Frame%1"_s.arg(i))->isVisible()) {
                frames << i;
            }
        }
        return frames;
    };
    const auto describe = [tabs](int i) {
        return QStringList{tabs->tabText(i), tabs->widget(i)->objectName(), tabs->tabToolTip(i)};
    };
    QCOMPARE(describe(0),
             (QStringList{u"Bioritmi"_s, u"TabBioritmi"_s, u"Gestire i bioritmi del sistema"_s}));
    QCOMPARE(describe(1), (QStringList{u"Esportazioni/Stampa"_s, u"TabEsp"_s,
                                       u"Gestione della stampa e delle esportazioni"_s}));
    QCOMPARE(describe(2), (QStringList{u"Opzioni"_s, u"TabOpzioni"_s, u"Gestire opzioni"_s}));
    QCOMPARE(visibleFrames(), (QList<int>{1, 2, 4}));
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
    QCOMPARE(visibleFrames(), (QList<int>{4, 5, 6}));
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(2).center());
    QCOMPARE(visibleFrames(), (QList<int>{3, 4}));
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(0).center());
    QCOMPARE(visibleFrames(), (QList<int>{1, 2, 4}));
}

void TestFProj::tabsDoNotMoveTheWindow() {
    const Fixture fixture;
    auto* tabs = fixture.window->findChild<QTabWidget*>(u"TabStrip1"_s);
    const auto* frame = fixture.window->findChild<QGroupBox*>(u"Frame4"_s);
    QCoreApplication::processEvents();
    const QSize least = fixture.window->minimumSizeHint();
    for (const QSize size : {least, QSize(900, 700)}) {
        fixture.window->resize(size);
        tabs->setCurrentIndex(0);
        QCoreApplication::processEvents();
        const QRect place = frame->geometry();
        for (int tab = 1; tab < 3; ++tab) {
            tabs->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            QCOMPARE(frame->geometry(), place);
            QCOMPARE(fixture.window->size(), size);
            QCOMPARE(fixture.window->minimumSizeHint(), least);
        }
    }
}

void TestFProj::startsWithoutMembers() {
    const Fixture fixture;
    QVERIFY(fixture.enabledButtons().isEmpty());
    for (const int number : {1, 2, 3, 8, 9, 10, 11}) {
        QVERIFY(fixture.button(u"Command%1"_s.arg(number))->isEnabled());
    }
}

void TestFProj::fillingTheTree() {
    const Fixture fixture({u"Anna"_s, u"Bruno"_s});
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
    QCOMPARE(fixture.enabledButtons(), allButtons());
    QVERIFY(!fixture.tree()->selectionModel()->hasSelection());
}

void TestFProj::fillingAnEmptyTree() {
    const Fixture fixture;
    fixture.window->fillTree(); // of a file without members
    QVERIFY(fixture.branches().isEmpty());
    QCOMPARE(fixture.enabledButtons(), systemButtons());
}

void TestFProj::addingMembers() {
    Fixture fixture;
    fixture.enter(u"Anna"_s, QDate(1981, 12, 25));
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
    QCOMPARE(fixture.program.state.systemMembers,
             (std::vector<SystemMember>{{u"Anna"_s, toDateValue(QDate(1981, 12, 25))}}));
    QCOMPARE(fixture.enabledButtons(), allButtons());
    QCOMPARE(fixture.frame.calls.at(1), u"panel 2 1 bioritmi nel sistema"_s);
    fixture.enter(u"Bruno"_s);
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
}

void TestFProj::aNameOnlyOnce() {
    Fixture fixture({u"Anna"_s});
    const auto before = fixture.program.state.systemMembers;
    fixture.dialogs.expectBox(
        u"Errore"_s, u"Esiste già un bioritmo relativo a questo nome. Nessuna azione compiuta."_s);
    fixture.enter(u"Anna"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.state.systemMembers, before);
    QVERIFY(fixture.frame.calls.isEmpty());
    QVERIFY(!fixture.program.state.modified);
    // Another letter case is another name.
    fixture.enter(u"anna"_s);
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di anna"_s}));
}

void TestFProj::noMoreThanTheLargestSystem() {
    constexpr int largest = 32'767;
    QStringList names;
    for (int i = 0; i < largest; ++i) {
        names << QString::number(i);
    }
    Fixture fixture(names);
    QTRY_COMPARE(fixture.tree()->model()->rowCount(), largest);
    fixture.dialogs.expectBox(
        u"Errore"_s,
        u"Overflow\nIl sistema è pieno: contiene già 32767 bioritmi. Rimuoverne uno prima di "
        "inserirne un altro, oppure inserirlo in un altro sistema."_s);
    fixture.enter(u"Anna"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{largest});
    QCOMPARE(fixture.tree()->model()->rowCount(), largest);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFProj::viewsOpenByAClick_data() {
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("windowName");
    QTest::addColumn<QString>("title");
    QTest::newRow("graph") << 0 << u"FGrph"_s << u"Grafico di Bruno"_s;
    QTest::newRow("week") << 1 << u"FGrphSet"_s << u"Grafico settimanale per Bruno"_s;
    QTest::newRow("day") << 2 << u"FStat"_s << u"Statistiche per Bruno"_s;
    QTest::newRow("forecasts") << 3 << u"FPrev"_s << u"Previsioni per Bruno"_s;
}

void TestFProj::viewsOpenByAClick() {
    QFETCH(int, view);
    QFETCH(QString, windowName);
    QFETCH(QString, title);
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.program.biorhythm.name = u"Somebody"_s;
    fixture.program.biorhythm.birthDate = 12'345;
    fixture.click(fixture.leaf(1, view));
    QCOMPARE(fixture.frame.calls, QStringList{u"show "_s + title});
    QCOMPARE(fixture.frame.shown.at(0)->objectName(), windowName);
    // Bruno was born on 26 December 1981.
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 8115 - 20);
    QCOMPARE(fixture.program.biorhythm.name, u"Somebody"_s);
    QCOMPARE(fixture.program.biorhythm.birthDate, 12'345.0);
}

void TestFProj::aViewShowsItsMember() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.program.biorhythm.name = u"Somebody"_s;
    fixture.program.biorhythm.birthDate = 12'345;
    fixture.click(fixture.leaf(0, 2));
    QStringList values;
    for (int box = 2; box <= 5; ++box) {
        values << fixture.frame.shown.at(0)->findChild<QLineEdit*>(u"Text%1"_s.arg(box))->text();
    }
    QCOMPARE(values, (QStringList{u"-7"_s, u"-8"_s, u"-4"_s, u"-6"_s})); // day 8116 of Anna's
}

void TestFProj::eachClickOpensAnotherWindow() {
    Fixture fixture({u"Anna"_s});
    fixture.click(fixture.leaf(0, 0));
    fixture.click(fixture.leaf(0, 0));
    QCOMPARE(fixture.frame.calls,
             (QStringList{u"show Grafico di Anna"_s, u"show Grafico di Anna"_s}));
    QVERIFY(fixture.frame.shown.at(0) != fixture.frame.shown.at(1));
}

void TestFProj::aMemberOpensNothing() {
    Fixture fixture({u"Anna"_s});
    fixture.click(fixture.member(0));
    QVERIFY(fixture.tree()->selectionModel()->isSelected(fixture.member(0)));
    QTest::keyClick(fixture.tree(), Qt::Key_Return);
    QTest::mouseClick(fixture.viewport(), Qt::RightButton, {}, fixture.place(fixture.leaf(0, 0)));
    QTest::mouseClick(fixture.viewport(), Qt::LeftButton, {},
                      fixture.viewport()->rect().bottomLeft() + QPoint(5, -5));
    QVERIFY(fixture.frame.calls.isEmpty());
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 0);
}

void TestFProj::oneWindowHoweverItIsOpened() {
    Fixture fixture({u"Anna"_s});
    // Twice on the same place: the desktop's habit elsewhere.
    const QPoint place = fixture.place(fixture.leaf(0, 1));
    QTest::mouseClick(fixture.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(fixture.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(fixture.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(fixture.frame.calls, QStringList(2, u"show Grafico settimanale per Anna"_s)); // again
    QCOMPARE(fixture.frame.shown.at(0), fixture.frame.shown.at(1));
    fixture.frame.shown.pop_back();

    // On desktops where one click activates.
    SingleClickStyle style;
    fixture.tree()->setStyle(&style);
    fixture.click(fixture.leaf(0, 3));
    QCOMPARE(fixture.frame.shown.size(), std::size_t{2});
    fixture.select(fixture.leaf(0, 2));
    QTest::keyClick(fixture.tree(), Qt::Key_Return);
    QCOMPARE(fixture.frame.shown.size(), std::size_t{3});
    delete fixture.window;
}

void TestFProj::theEnterKeyOpens() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.select(fixture.member(1));
    QTest::keyClick(fixture.tree(), Qt::Key_Right); // opens the branch
    QTest::keyClick(fixture.tree(), Qt::Key_Down);
    QTest::keyClick(fixture.tree(), Qt::Key_Return);
    QTest::keyClick(fixture.tree(), Qt::Key_Down);
    QTest::keyClick(fixture.tree(), Qt::Key_Enter, Qt::KeypadModifier);
    const QStringList opened{u"show Grafico di Bruno"_s, u"show Grafico settimanale per Bruno"_s};
    QCOMPARE(fixture.frame.calls, opened);

    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCoreApplication::sendEvent(fixture.tree(), &held);
    QCOMPARE(fixture.frame.calls, opened);

    fixture.button(u"Command6"_s)->setFocus();
    QTest::keyClick(fixture.button(u"Command6"_s), Qt::Key_Return);
    QCOMPARE(fixture.frame.calls.constLast(), u"show Statistiche di sistema"_s);
}

/// For those who can select a leaf and not click it: usable as the tree is, with a leaf selected.
void TestFProj::theButtonOpens() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    const auto* open = fixture.button(u"CommandOpen"_s);
    const auto select = [&fixture](const QModelIndex& node) {
        fixture.tree()->selectionModel()->select(node, QItemSelectionModel::ClearAndSelect);
    };
    QVERIFY(!open->isEnabled());
    select(fixture.member(1));
    QVERIFY(!open->isEnabled());
    const QModelIndex leaf = fixture.tree()->model()->index(1, 0, fixture.member(1));
    select(leaf);
    QVERIFY(open->isEnabled());
    QCOMPARE(fixture.frame.calls, QStringList());
    fixture.button(u"CommandOpen"_s)->click();
    QCOMPARE(fixture.frame.calls, QStringList(u"show Grafico settimanale per Bruno"_s));

    fixture.window->setUsable(FProj::Usable::insertion);
    QVERIFY(!open->isEnabled());
    fixture.window->setUsable(FProj::Usable::everything);
    QVERIFY(open->isEnabled());
    fixture.window->fillTree(); // the nodes are others now
    QVERIFY(!open->isEnabled());
}

void TestFProj::invalidSelections_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("purpose");
    QTest::newRow("remove") << u"Command7"_s << u"rimuovere"_s;
    QTest::newRow("export") << u"Command12"_s << u"esportare"_s;
    QTest::newRow("save") << u"Command13"_s << u"esportare a file"_s;
    QTest::newRow("print") << u"Command15"_s << u"stampare"_s;
}

void TestFProj::invalidSelections() {
    QFETCH(QString, button);
    QFETCH(QString, purpose);
    Fixture fixture({u"Anna"_s});
    const auto refused = [&](const QModelIndex& node) {
        fixture.select(node);
        fixture.dialogs.expectBox(
            u"Errore."_s,
            u"L'elemento selezionato non è valido. Selezionare un bioritmo da "_s + purpose + u'.');
        fixture.button(button)->click();
        return fixture.dialogs.finished();
    };
    QVERIFY(refused({}));
    QVERIFY(refused(fixture.leaf(0, 2)));
    QVERIFY(fixture.frame.calls.isEmpty());
    QCOMPARE(memberNames(fixture.program.state), QStringList{u"Anna"_s});
    QVERIFY(fixture.program.biorhythm.name.isEmpty());
    QVERIFY(!fixture.program.state.modified);
}

void TestFProj::removingTheFirstOfThree() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    fixture.select(fixture.member(0));
    fixture.dialogs.expectLoss(u"Conferma eliminazione"_s, u"Rimuovere il bioritmo di Anna ?"_s,
                               Answer::yes);
    fixture.press(u"Command7"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(memberNames(fixture.program.state), (QStringList{u"Carla"_s, u"Bruno"_s}));
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Bruno"_s, u"Bioritmo di Carla"_s}));
    QVERIFY(fixture.program.state.modified);
    QCOMPARE(fixture.frame.calls.at(1), u"panel 2 2 bioritmi nel sistema"_s);
    QCOMPARE(fixture.enabledButtons(), allButtons());

    // A leaf opens the view of the member that it shows, wherever that one is in the list.
    fixture.click(fixture.leaf(1, 2));
    QCOMPARE(fixture.frame.calls.constLast(), u"show Statistiche per Carla"_s);
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 8114 - 20);
}

void TestFProj::removingIsRefused() {
    Fixture fixture({u"Anna"_s});
    fixture.select(fixture.member(0));
    fixture.dialogs.expectLoss(u"Conferma eliminazione"_s, u"Rimuovere il bioritmo di Anna ?"_s,
                               Answer::no);
    fixture.press(u"Command7"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
    QVERIFY(!fixture.program.state.modified);
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFProj::removingTheLastOne() {
    Fixture fixture({u"Anna"_s});
    fixture.select(fixture.member(0));
    fixture.dialogs.expectLoss(u"Conferma eliminazione"_s, u"Rimuovere il bioritmo di Anna ?"_s,
                               Answer::yes);
    fixture.press(u"Command7"_s);
    QVERIFY(fixture.branches().isEmpty());
    QVERIFY(fixture.enabledButtons().isEmpty());
    QVERIFY(fixture.button(u"Command1"_s)->isEnabled());
    QVERIFY(fixture.button(u"Command2"_s)->isEnabled());
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{0});
    QCOMPARE(fixture.program.state.systemMembers.size(), std::size_t{1});
    fixture.enter(u"Anna"_s); // the name is free again
    QCOMPARE(fixture.enabledButtons(), allButtons());
    QCOMPARE(memberNames(fixture.program.state), QStringList{u"Anna"_s});
}

void TestFProj::inserting() {
    Fixture fixture;
    fixture.press(u"Command1"_s);
    QCOMPARE(fixture.frame.calls, QStringList{u"enter biorhythm"_s});
    fixture.press(u"Command2"_s);
    QCOMPARE(fixture.frame.calls.constLast(), u"run mnuApriBioritmo"_s);
    QVERIFY(!fixture.program.state.modified);

    fixture.enter(u"Anna"_s); // what both bring
    QVERIFY(fixture.program.state.modified);
}

void TestFProj::whatATourLeavesUsable_data() {
    QTest::addColumn<FProj::Usable>("usable");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("nothing") << FProj::Usable::nothing << QStringList();
    QTest::newRow("insertion") << FProj::Usable::insertion
                               << QStringList{u"Command1"_s, u"Command2"_s};
}

void TestFProj::whatATourLeavesUsable() {
    QFETCH(FProj::Usable, usable);
    QFETCH(QStringList, buttons);
    const QStringList always{u"Command1"_s, u"Command2"_s,  u"Command3"_s, u"Command8"_s,
                             u"Command9"_s, u"Command10"_s, u"Command11"_s};
    const auto everything = [&always](const QStringList& ofMembers) {
        QStringList names;
        for (int number = 1; number <= 15; ++number) {
            const QString name = u"Command%1"_s.arg(number);
            if (always.contains(name) || ofMembers.contains(name)) {
                names << name;
            }
        }
        return names << u"TreeView1"_s;
    };
    Fixture fixture;
    QCOMPARE(fixture.usable(), everything({}));
    fixture.window->setUsable(usable);
    QCOMPARE(fixture.usable(), buttons);
    fixture.window->setUsable(FProj::Usable::everything);
    QCOMPARE(fixture.usable(), everything({}));

    // What the members ask for meanwhile shows afterwards, and not before.
    fixture.window->setUsable(usable);
    fixture.enter(u"Anna"_s);
    QCOMPARE(fixture.usable(), buttons);
    fixture.window->fillTree();
    QCOMPARE(fixture.usable(), buttons);
    fixture.window->setUsable(FProj::Usable::everything);
    QCOMPARE(fixture.usable(), everything(allButtons()));

    // The same with members from the start, and with a file that holds none.
    fixture.window->setUsable(usable);
    QCOMPARE(fixture.usable(), buttons);
    fixture.program.state.systemCount = 0;
    fixture.window->fillTree();
    QCOMPARE(fixture.usable(), buttons);
    fixture.window->setUsable(FProj::Usable::everything);
    QCOMPARE(fixture.usable(), everything(systemButtons()));
}

void TestFProj::anExportDuringATour() {
    Fixture fixture({u"Anna"_s});
    fixture.expectExportWarning();
    fixture.window->exportSystem();
    QVERIFY(fixture.dialogs.finished());
    fixture.window->setUsable(FProj::Usable::insertion);
    QCOMPARE(fixture.usable(), QStringList());
    fixture.window->unlock();
    QCOMPARE(fixture.usable(), (QStringList{u"Command1"_s, u"Command2"_s}));

    fixture.expectExportWarning();
    fixture.window->exportSystem();
    fixture.window->setUsable(FProj::Usable::everything);
    QCOMPARE(fixture.usable(), QStringList());
    fixture.window->unlock();
    QCOMPARE(fixture.enabledButtons(), allButtons());
}

void TestFProj::systemViews() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.press(u"Command6"_s);
    fixture.press(u"Command4"_s);
    fixture.press(u"Command6"_s);
    fixture.press(u"Command5"_s);
    QCOMPARE(fixture.frame.calls,
             (QStringList{u"show Statistiche di sistema"_s, u"show Previsione di sistema"_s,
                          u"show Statistiche di sistema"_s, u"show Grafico di sistema"_s}));
    QVERIFY(fixture.frame.shown.at(0) != fixture.frame.shown.at(2));
}

void TestFProj::compatibility() {
    Fixture fixture;
    fixture.press(u"Command8"_s); // whether there are members or not
    fixture.press(u"Command8"_s);
    QCOMPARE(fixture.frame.calls,
             (QStringList{u"show Compatibilità bioritmica"_s, u"show Compatibilità bioritmica"_s}));
    QCOMPARE(fixture.frame.shown.at(0), fixture.frame.shown.at(1));
    // Closed and opened again it is a new one, even before the old one is gone.
    fixture.frame.shown.at(0)->closeWindow();
    fixture.press(u"Command8"_s);
    QVERIFY(fixture.frame.shown.at(2) != fixture.frame.shown.at(0));
    fixture.frame.shown.erase(fixture.frame.shown.begin());
}

void TestFProj::systemViewsNeedMembers() {
    Fixture fixture;
    fixture.window->fillTree();
    for (const QString& name : {u"Command4"_s, u"Command5"_s, u"Command6"_s}) {
        fixture.dialogs.expectBox(
            u"Errore"_s, u"Il sistema non contiene bioritmi. Nessuna operazione eseguita."_s);
        fixture.press(name);
    }
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.frame.calls.isEmpty());
}

void TestFProj::optionsAndHelp() {
    Fixture fixture;
    fixture.button(u"Command10"_s)->click();
    QCOMPARE(fixture.frame.calls, QStringList{u"run mnuOpzioni"_s});
    QString shown;
    setHelpViewer([&shown](QWidget* /*window*/, const QString& path) { shown = path; });
    fixture.press(u"Command9"_s);
    setHelpViewer({});
    QVERIFY(shown.endsWith(u"Quor.chm::/Sistemi.html"_s));
}

void TestFProj::movingTheDate_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QDate>("date");
    QTest::newRow("today") << u"oggi"_s << QDate(2026, 11, 21);
    QTest::newRow("today in capitals") << u"  OGGI "_s << QDate(2026, 11, 21);
    QTest::newRow("with blanks") << u" 13 Nov 1945 "_s << QDate(1945, 11, 13);
    QTest::newRow("numbers") << u"25/12/1981"_s << QDate(1981, 12, 25);
    QTest::newRow("the same date") << u"2004-03-15"_s << QDate(2004, 3, 15);
}

namespace {

void expectDateBox(Fixture& fixture, const QString& typed) {
    fixture.dialogs.expectInput(
        u"Inserimento"_s,
        u"Inserire la data di calcolo desiderata.\n\nUn trucco: per la data di oggi, inserire "
        "semplicemente la parola 'oggi'."_s,
        typed);
}

} // namespace

void TestFProj::movingTheDate() {
    QFETCH(QString, typed);
    QFETCH(QDate, date);
    Fixture fixture({u"Anna"_s});
    fixture.program.biorhythm.daysAtGraphStart = 77;
    expectDateBox(fixture, typed);
    fixture.dialogs.expectBox(
        u"Operazione eseguita."_s,
        u"La nuova data di calcolo è stata inserita.\n\nATTENZIONE: il contenuto delle finestre "
        "aperte NON cambierà finche saranno aperte.\nChiudere e riaprire quindi le finestre "
        "interessate."_s);
    fixture.button(u"Command3"_s)->click();
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate), date);
    QCOMPARE(fixture.frame.calls, QStringList{u"panel 3 Data in esame per il calcolo: "_s +
                                              shortDate(toDateValue(date))});
    QVERIFY(fixture.program.state.modified);
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 77); // the next view computes it
}

void TestFProj::invalidDates_data() {
    QTest::addColumn<QString>("typed");
    QTest::newRow("cancelled") << QString();
    QTest::newRow("no such day") << u"31/02/2004"_s;
    QTest::newRow("words") << u"oggi stesso"_s;
}

void TestFProj::invalidDates() {
    QFETCH(QString, typed);
    Fixture fixture;
    expectDateBox(fixture, typed);
    fixture.dialogs.expectBox(u"Errore"_s,
                              u"La data inserita non è valida. Nessuna operazione eseguita."_s);
    fixture.button(u"Command3"_s)->click();
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(toQDate(fixture.program.biorhythm.calculationDate), QDate(2004, 3, 15));
    QVERIFY(fixture.frame.calls.isEmpty());
    QVERIFY(!fixture.program.state.modified);
}

void TestFProj::exportingAMember() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.select(fixture.member(1));
    fixture.expectExportWarning();
    fixture.button(u"Command12"_s)->click();
    QVERIFY(fixture.dialogs.finished());
    const Biorhythm& biorhythm = fixture.program.biorhythm;
    QCOMPARE(biorhythm.name, u"Bruno"_s);
    QCOMPARE(toQDate(biorhythm.birthDate), QDate(1981, 12, 26));
    QCOMPARE(biorhythm.daysAtGraphStart, 8115 - 20);
    QCOMPARE(fixture.frame.calls, QStringList{u"export Esportazione bioritmo di Bruno"_s});
    QVERIFY(!fixture.frame.window.isEnabled());
    QVERIFY(!fixture.window->isEnabled());
    QVERIFY(!fixture.program.state.exportWholeSystem);
    fixture.window->unlock();
    QVERIFY(fixture.window->isEnabled());
    QCOMPARE(fixture.enabledButtons(), allButtons());
}

void TestFProj::savingAMember() {
    for (const bool modified : {false, true}) {
        Fixture fixture({u"Anna"_s, u"Bruno"_s});
        fixture.program.state.modified = modified;
        fixture.program.biorhythm.daysAtGraphStart = 77;
        fixture.select(fixture.member(0));
        QString saved;
        fixture.frame.onRun = [&] {
            saved = fixture.program.biorhythm.name;
            fixture.program.state.modified = false; // as saving a biorhythm does
        };
        fixture.button(u"Command13"_s)->click();
        QCOMPARE(fixture.frame.calls, QStringList{u"run mnuSalvaConNome"_s});
        QCOMPARE(saved, u"Anna"_s);
        QCOMPARE(toQDate(fixture.program.biorhythm.birthDate), QDate(1981, 12, 25));
        QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 77);
        QCOMPARE(fixture.program.state.modified, modified); // the system is as it was
        QVERIFY(fixture.window->isEnabled());
    }
}

void TestFProj::exportingTheSystem() {
    Fixture fixture({u"Anna"_s});
    fixture.expectExportWarning();
    fixture.button(u"Command14"_s)->click(); // whatever is selected
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.frame.calls, (QStringList{u"menu mnuFile off"_s, u"toolbar off"_s,
                                               u"export Esportazione del sistema"_s}));
    QVERIFY(fixture.frame.window.isEnabled());
    QVERIFY(!fixture.window->isEnabled());
    QVERIFY(fixture.program.state.exportWholeSystem);
    QVERIFY(fixture.program.biorhythm.name.isEmpty());
}

void TestFProj::anEmptySystemIsNotExported() {
    Fixture fixture;
    fixture.dialogs.expectBox(u"Errore"_s,
                              u"Il sistema non contiene bioritmi. Nessuna operazione eseguita."_s);
    fixture.window->exportSystem(); // the menu's command does not know how many there are
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.frame.calls.isEmpty());
    QVERIFY(fixture.window->isEnabled());
}

void TestFProj::printingAMember() {
    Fixture fixture({u"Anna"_s});
    fixture.select(fixture.member(0));
    fixture.dialogs.expectBox(
        u"Avviso"_s,
        u"Durante la procedura per la stampa non sarà possibile effettuare cambiamenti sul "
        "sistema.\nIl controllo del sistema sarà ripristinato con la chiusura della finestra di "
        "stampa."_s);
    fixture.button(u"Command15"_s)->click();
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.biorhythm.name, u"Anna"_s);
    QCOMPARE(fixture.program.biorhythm.daysAtGraphStart, 8116 - 20);
    QCOMPARE(fixture.frame.calls, QStringList{u"print"_s});
    QVERIFY(!fixture.frame.window.isEnabled());
    QVERIFY(!fixture.window->isEnabled());
}

void TestFProj::aLockedWindowCannotBeClosed() {
    Fixture fixture({u"Anna"_s});
    QMdiArea area;
    area.resize(900, 700);
    QMdiSubWindow* window = area.addSubWindow(fixture.window);
    area.show();
    fixture.expectExportWarning();
    fixture.button(u"Command14"_s)->click();
    QVERIFY(!window->isEnabled());
    fixture.window->unlock();
    QVERIFY(window->isEnabled());
    QVERIFY(fixture.button(u"Command11"_s)->isEnabled());
}

void TestFProj::closingAsksOnce_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("close box") << 1;
    QTest::newRow("frame's command") << 2;
}

void TestFProj::closingAsksOnce() {
    QFETCH(int, way);
    Fixture fixture({u"Anna"_s});
    QMdiArea area;
    QMdiSubWindow* window = area.addSubWindow(fixture.window);
    area.show();
    fixture.expectClosing(Answer::yes); // without changes nothing else is asked
    switch (way) {
    case 0:
        fixture.press(u"Command11"_s);
        break;
    case 1:
        window->close();
        break;
    default:
        fixture.window->closeWindow();
        break;
    }
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.program.state.systemOpen);
    QVERIFY(fixture.frame.calls.contains(u"menu mnuBioritmi on"_s));
    QVERIFY(!fixture.frame.calls.contains(u"run mnuSalvaSistema"_s));
    QVERIFY(fixture.isGone());
}

void TestFProj::closingIsRefused() {
    Fixture fixture({u"Anna"_s});
    fixture.program.state.modified = true;
    fixture.expectClosing(Answer::no);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.program.state.systemOpen);
    QVERIFY(fixture.frame.calls.isEmpty());
    QVERIFY(!fixture.isGone());
    QVERIFY(fixture.window->isVisible());
}

void TestFProj::closingSaves() {
    Fixture fixture({u"Anna"_s});
    fixture.program.state.modified = true;
    fixture.frame.onRun = [&] { fixture.program.state.modified = false; };
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::yes);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.frame.calls.constFirst(), u"run mnuSalvaSistema"_s); // before anything goes
    QVERIFY(!fixture.program.state.systemOpen);
    QVERIFY(fixture.isGone());
}

void TestFProj::closingWithoutSaving() {
    Fixture fixture({u"Anna"_s});
    fixture.program.state.modified = true;
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::no);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(!fixture.frame.calls.contains(u"run mnuSalvaSistema"_s));
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{0});
    QVERIFY(fixture.isGone());
}

void TestFProj::closingEmptiesTheTreeFirst() {
    // The windows that close with the biorhythm may bring this one to the front.
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.program.biorhythm.name = u"Bruno"_s;
    QStringList shown{u"not asked"_s};
    fixture.frame.onCloseBiorhythm = [&] { shown = fixture.branches(); };
    fixture.expectClosing(Answer::yes);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(shown, QStringList());
}

void TestFProj::compatibilityClosesWithTheSystem() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.press(u"Command8"_s);
    const QPointer<ChildWindow> compared = fixture.frame.shown.at(0);
    fixture.frame.shown.clear();
    fixture.expectClosing(Answer::no);
    fixture.press(u"Command11"_s);
    QVERIFY(!fixture.isGone());
    QVERIFY(!compared.isNull());
    fixture.expectClosing(Answer::yes);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QVERIFY(fixture.isGone());
    QVERIFY(compared.isNull());
}

void TestFProj::aFailedSaveKeepsTheSystem() {
    Fixture fixture({u"Anna"_s});
    fixture.program.state.modified = true; // and the frame's saving leaves it so
    fixture.expectClosing(Answer::yes);
    fixture.expectSaving(Answer::yes);
    fixture.press(u"Command11"_s);
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.frame.calls, QStringList{u"run mnuSalvaSistema"_s});
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Anna"_s});
    QVERIFY(!fixture.isGone());
}

void TestFProj::longNamesHaveATip() {
    const QString name = QString(200, u'x') + u"<b>"_s;
    Fixture fixture({u"Anna"_s, name});
    const auto hover = [&fixture](const QModelIndex& node) {
        const QPoint place = fixture.place(node);
        QHelpEvent event(QEvent::ToolTip, place, fixture.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(fixture.viewport(), &event);
        return QToolTip::text();
    };
    QCOMPARE(hover(fixture.member(0)), QString());
    QCOMPARE(hover(fixture.member(1)), toolTipText(u"Bioritmo di "_s + name));
}

} // namespace quor::test
