#include "looks/TestLooks.h"

#include "shell/ApplicationSetup.h"
#include "toolkit/Dialogs.h"
#include "views/analysis/FComp.h"

#include "accessibility/EveryWindow.h"
#include "looks/Desktop.h"
#include "looks/LookFaults.h"

#include <QApplication>
#include <QComboBox>
#include <QMdiSubWindow>
#include <QTabWidget>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Fonts up to this size have to do with a small screen.
constexpr int largestOnSmallScreen = 14;
/// What the window manager's title bar and a panel of the desktop take.
constexpr QSize desktopTakes{0, 54};

QSize screenFor(int points) {
    return (points <= largestOnSmallScreen ? QSize(1366, 768) : QSize(1920, 1080)) - desktopTakes;
}

/// Windows inside the frame lie in what it leaves them.
QSize roomFor(const QWidget& window, QSize screen) {
    const auto* inner = qobject_cast<const QMdiSubWindow*>(window.parentWidget());
    return inner != nullptr ? inner->parentWidget()->size() : screen;
}

/// Chooses two persons, without whom the window of their compatibility shows little.
void compareTwo(QWidget& window) {
    const auto lists = window.findChildren<QComboBox*>();
    for (int i = 0; i < lists.size(); ++i) {
        lists.at(i)->setCurrentIndex(i);
    }
}

/// Where somebody wants to see for himself.
void photograph(QWidget& window) {
    static int number = 0;
    const QString folder = qEnvironmentVariable("QUOR_LOOKS_PHOTOGRAPHS");
    if (!folder.isEmpty()) {
        const QString row = QString::fromLatin1(QTest::currentDataTag()).section(u':', -1);
        window.grab().save(u"%1/%2 %3.png"_s.arg(folder, row).arg(++number));
    }
}

QStringList faultsOf(QWidget& window, QSize room) {
    QCoreApplication::processEvents();
    photograph(window.isWindow() ? window : *window.parentWidget());
    return cutFaults(window) + overlapFaults(window) + sizeFaults(window, room) +
           contrastFaults(window) + pictureFaults(window);
}

} // namespace

void TestLooks::initTestCase() {
    setUpApplication(*qApp);
}

void TestLooks::cleanupTestCase() {
    setDesktop({});
}

void TestLooks::hasNoFaults_data() {
    QTest::addColumn<qsizetype>("index");
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("points");
    for (std::size_t i = 0; i < everyWindow().size(); ++i) {
        for (const bool dark : {false, true}) {
            for (const int points : {8, 10, 14, 20}) {
                QTest::addRow("%s %s %d", everyWindow().at(i).className, dark ? "dark" : "light",
                              points)
                    << static_cast<qsizetype>(i) << dark << points;
            }
        }
    }
}

void TestLooks::hasNoFaults() {
    QFETCH(qsizetype, index);
    QFETCH(bool, dark);
    QFETCH(int, points);
    setDesktop({.dark = dark, .points = points});
    WindowScene scene;
    const QSize screen = screenFor(points);
    scene.frame.resize(screen);
    QWidget* window = showWindow(everyWindow().at(static_cast<std::size_t>(index)), scene);
    QVERIFY(window != nullptr);
    const QSize room = roomFor(*window, screen);
    QStringList faults = faultsOf(*window, room);
    if (qobject_cast<FComp*>(window) != nullptr) {
        compareTwo(*window);
        faults += faultsOf(*window, room);
    }
    for (auto* tabs : window->findChildren<QTabWidget*>()) {
        for (int i = 1; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            faults += faultsOf(*window, room);
        }
    }
    faults.removeDuplicates();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u"\n  "_s)));
}

void TestLooks::boxesHaveNoFaults_data() {
    using Open = std::function<void(QWidget*)>;
    QTest::addColumn<Open>("open");
    QTest::addColumn<bool>("dark");
    QTest::addColumn<int>("points");
    const auto message = [](BoxKind kind, const QString& text) {
        return Open([kind, text](QWidget* parent) {
            dialogHost().message(parent, {kind, text, u"Conferma"_s});
        });
    };
    const QString longText =
        u"Questo comporterà la chiusura del bioritmo di Maria Antonietta Della Valle di Sopra. "
        "Si desidera continuare ugualmente?"_s;
    const std::pair<const char*, Open> boxes[]{
        {"information", message(BoxKind::information, u"File salvato"_s)},
        {"warning", message(BoxKind::warning, longText)},
        {"error",
         message(BoxKind::error, u"Overflow\nScrivere un numero di giorni da 1 a 32767."_s)},
        {"question", message(BoxKind::question, longText)},
        {"openQuestion", message(BoxKind::openQuestion, longText)},
        {"loss", message(BoxKind::loss, u"Bioritmo di Anna\n\nEliminare le modifiche?"_s)},
        {"choice",
         [](QWidget* parent) {
             dialogHost().choice(
                 parent, {.text = u"Quor è terminato prima che queste modifiche fossero salvate."
                                  "\n\nBioritmo di Maria Antonietta Della Valle di Sopra e di S…"
                                  "\nFile: /home/maria/Documenti/…/Maria Antonietta.bio"
                                  "\n\nSi desidera recuperare queste modifiche?"_s,
                          .title = u"Recupero"_s,
                          .buttons = {u"&Recupera"_s, u"&Elimina"_s, u"&Più tardi"_s}});
         }},
        {"input", [](QWidget* parent) {
             dialogHost().input(parent, u"Inserire la nuova data di calcolo"_s, u"Inserimento"_s);
         }}};
    for (const auto& [name, open] : boxes) {
        for (const bool dark : {false, true}) {
            for (const int points : {8, 10, 14, 20}) {
                QTest::addRow("%s %s %d", name, dark ? "dark" : "light", points)
                    << open << dark << points;
            }
        }
    }
}

void TestLooks::boxesHaveNoFaults() {
    QFETCH(std::function<void(QWidget*)>, open);
    QFETCH(bool, dark);
    QFETCH(int, points);
    setDesktop({.dark = dark, .points = points});
    QWidget parent;
    parent.resize(screenFor(points));
    parent.show();
    QStringList faults{u"no box has come"_s};
    QTimer::singleShot(0, this, [&faults, points] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            faults = faultsOf(*box, screenFor(points));
            box->reject();
        }
    });
    open(&parent);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u"\n  "_s)));
}

} // namespace quor::test
