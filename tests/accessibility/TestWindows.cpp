#include "accessibility/TestWindows.h"

#include "export/FEsp.h"
#include "guidance/FOpt.h"
#include "shell/ApplicationSetup.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrSetOpt.h"

#include "accessibility/EveryWindow.h"
#include "accessibility/WindowFaults.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// What the captions, which are given, bring with them.
const Clashes& givenClashes() {
    static const Clashes clashes{
        // The menu bar.
        u"F: &File sistemi | &Finestre"_s,
        // The menu of systems, and that of biorhythms.
        u"O: Salva c&on nome | &Opzioni Sistema"_s,
        u"O: Salva c&on nome | &Opzioni bioritmo"_s,
    };
    return clashes;
}

QStringList visitedClasses() {
    QStringList names;
    for (const WindowEntry& entry : everyWindow()) {
        names << QString::fromLatin1(entry.className);
    }
    names.sort();
    return names;
}

void addEntries() {
    QTest::addColumn<qsizetype>("index");
    for (std::size_t i = 0; i < everyWindow().size(); ++i) {
        QTest::newRow(everyWindow().at(i).className) << static_cast<qsizetype>(i);
    }
}

QString contentOfSource(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Class and what it derives from, of all that is declared in the program's sources.
QMap<QString, QStringList> declaredClasses() {
    static const QRegularExpression declaration(
        u"\\bclass\\s+(\\w+)(?:\\s+final)?\\s*:\\s*((?:public|protected|private)[^{;]*)\\{"_s);
    static const QRegularExpression base(u"(?:public|protected|private)\\s+([\\w:]+)"_s);
    QMap<QString, QStringList> classes;
    QDirIterator files(QStringLiteral(QUOR_SOURCES), {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        for (const auto& match : declaration.globalMatch(contentOfSource(files.next()))) {
            for (const auto& parent : base.globalMatch(match.captured(2))) {
                classes[match.captured(1)] << parent.captured(1);
            }
        }
    }
    return classes;
}

bool isWindowClass(const QMap<QString, QStringList>& classes, const QString& name) {
    static const QRegularExpression toolkitWindow(
        u"^(Q\\w*Dialog|QMessageBox|QMainWindow|QWizard|QSplashScreen|ChildWindow)$"_s);
    if (toolkitWindow.match(name).hasMatch()) {
        return true;
    }
    const QStringList parents = classes.value(name);
    return std::ranges::any_of(
        parents, [&](const QString& parent) { return isWindowClass(classes, parent); });
}

} // namespace

void TestWindows::initTestCase() {
    setUpApplication(*qApp); // the toolkit's own texts in Italian, as in the program
}

/// A window that is new in the program has to come into the list above. What others derive from is
/// seen with them.
void TestWindows::noneIsForgotten() {
    const QMap<QString, QStringList> classes = declaredClasses();
    QVERIFY(classes.value(u"FGrph"_s).contains(u"GraphWindow"_s));
    QStringList windows;
    for (const QString& name : classes.keys()) {
        const bool isBase = std::ranges::any_of(
            classes, [&](const QStringList& parents) { return parents.contains(name); });
        if (isWindowClass(classes, name) && !isBase) {
            windows << u"quor::"_s + name;
        }
    }
    windows.sort();
    QCOMPARE(windows, visitedClasses());
}

/// And a box that somebody opens without a class of its own would not be seen at all.
void TestWindows::boxesGoThroughTheirDoor() {
    static const QRegularExpression direct(
        u"#include <(Q\\w+Dialog|QMessageBox|QWizard|QErrorMessage)>"_s);
    QStringList files;
    QDirIterator iterator(QStringLiteral(QUOR_SOURCES), {u"*.cpp"_s}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        if (contentOfSource(path).contains(direct)) {
            files << iterator.fileName();
        }
    }
    files.sort();
    QCOMPARE(files, (QStringList{u"Dialogs.cpp"_s, u"SystemPrintDialog.cpp"_s}));
}

void TestWindows::theToolkitSpeaksItalian() {
    QCOMPARE(QFileIconProvider().type(QFileInfo(QDir::tempPath())), u"Cartella"_s);
    QCOMPARE(QFileDialog::tr("Folder"), u"Cartella"_s);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Annulla"_s);
    // Of the print dialog, where Qt's translation has gaps.
    QCOMPARE(QCoreApplication::translate("QPrintPropertiesWidget", "Advanced"), u"Avanzate"_s);
    QCOMPARE(QCoreApplication::translate("QPrintSettingsOutput", "Pages"), u"Pagine"_s);
}

void TestWindows::hasNoFaults_data() {
    addEntries();
}

void TestWindows::hasNoFaults() {
    QFETCH(qsizetype, index);
    const WindowEntry& entry = everyWindow().at(static_cast<std::size_t>(index));
    WindowScene scene;
    QWidget* window = showWindow(entry, scene);
    QVERIFY(window != nullptr);
    QCOMPARE(window->metaObject()->className(), entry.className);
    if (window == &scene.frame) {
        // The tab key stays in the window inside that is being worked in.
        QCOMPARE((nameFaults(*window) + accessKeyFaults(*window, givenClashes())).join(u"; "_s),
                 QString());
        QVERIFY(!window->windowTitle().isEmpty());
        return;
    }
    QCOMPARE((windowFaults(*window, givenClashes())).join(u"; "_s), QString());
}

/// What lies on the other tabs.
void TestWindows::everyTabHasNoFaults() {
    for (const WindowEntry& entry : everyWindow()) {
        WindowScene scene;
        QWidget* window = showWindow(entry, scene);
        QVERIFY(window != nullptr);
        for (auto* tabs : window->findChildren<QTabWidget*>()) {
            for (int i = 1; i < tabs->count(); ++i) {
                tabs->setCurrentIndex(i);
                tabs->setFocus();
                QCoreApplication::processEvents();
                const QStringList faults = windowFaults(*window, givenClashes());
                QVERIFY2(faults.isEmpty(),
                         qPrintable(QString::fromLatin1(entry.className) + u' ' + tabs->tabText(i) +
                                    u": "_s + faults.join(u"; "_s)));
            }
        }
    }
}

void TestWindows::escapeClosesDialogs_data() {
    addEntries();
}

void TestWindows::escapeClosesDialogs() {
    QFETCH(qsizetype, index);
    WindowScene scene;
    const QPointer<QWidget> window =
        showWindow(everyWindow().at(static_cast<std::size_t>(index)), scene);
    if (qobject_cast<QDialog*>(window) == nullptr) {
        return; // the windows inside the frame have Ctrl+W
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // While a run goes on, its progress stays.
    const bool stays = qobject_cast<FEsp*>(window) != nullptr;
    QCOMPARE(window != nullptr && window->isVisible(), stays);
}

void TestWindows::menusHaveNoFaults_data() {
    QTest::addColumn<bool>("system");
    QTest::newRow("person") << false;
    QTest::newRow("system") << true;
}

void TestWindows::menusHaveNoFaults() {
    QFETCH(bool, system);
    WindowScene scene;
    if (system) {
        scene.enterSystem();
    } else {
        scene.enter();
    }
    scene.frame.showDayPopup({.day = u"Giorno 15/03/2004"_s,
                              .physical = u"Fisico: -7"_s,
                              .emotional = u"Emotivo: -8"_s,
                              .intellectual = u"Intellettivo: -4"_s,
                              .mean = u"Media: -6"_s},
                             {100, 100});
    QApplication::activePopupWidget()->close();

    QCOMPARE((menuFaults(scene.frame.menuBar()->actions(), givenClashes())).join(u"; "_s),
             QString());
    const auto menus = scene.frame.findChildren<QMenu*>();
    QVERIFY(menus.size() >= 6); // four in the bar, the popup, the drop-down of the options
    for (QMenu* menu : menus) {
        // What a menu brings in only when it opens is there then.
        QVERIFY(QMetaObject::invokeMethod(menu, "aboutToShow"));
        const QStringList faults = menuFaults(menu->actions(), givenClashes());
        QVERIFY2(faults.isEmpty(),
                 qPrintable(menu->objectName() + menu->title() + u": "_s + faults.join(u"; "_s)));
    }
}

/// The tab key does not go to the toolbar, so that everything it does has to be elsewhere: in a
/// menu, or in the window of the options.
void TestWindows::toolbarCommandsAreInMenus() {
    for (const ToolInfo& tool : toolTable()) {
        if (!tool.isSeparator()) {
            QVERIFY2(commandInfo(tool.command).menu != Menu::none, tool.key);
        }
    }
    WindowScene scene;
    QWidget* options = scene.afterCommand<FOpt>(Command::mnuOpzioni);
    options->findChild<QAbstractButton*>(u"Command1"_s)->click();
    QVERIFY(scene.open<FGrOpt>() != nullptr);
    options->findChild<QAbstractButton*>(u"Command2"_s)->click();
    QVERIFY(scene.open<FGrSetOpt>() != nullptr);
}

void TestWindows::boxesHaveNoFaults_data() {
    using Open = std::function<void(QWidget*)>;
    QTest::addColumn<Open>("open");
    QTest::newRow("information") << Open([](QWidget* parent) {
        dialogHost().message(parent, {BoxKind::information, u"Salvato."_s, u"Ok"_s});
    });
    QTest::newRow("question") << Open([](QWidget* parent) {
        dialogHost().message(parent, {BoxKind::question, u"Chiudere?"_s, u"Conferma"_s});
    });
    QTest::newRow("loss") << Open([](QWidget* parent) {
        dialogHost().message(parent, {BoxKind::loss, u"Eliminare?"_s, u"Conferma"_s});
    });
    QTest::newRow("open question") << Open([](QWidget* parent) {
        dialogHost().message(parent, {BoxKind::openQuestion, u"Rifarle?"_s, u"Conferma"_s});
    });
    QTest::newRow("choice") << Open([](QWidget* parent) {
        dialogHost().choice(parent, {.text = u"Recuperare?"_s,
                                     .title = u"Recupero"_s,
                                     .buttons = {u"&Recupera"_s, u"&Elimina"_s, u"&Più tardi"_s}});
    });
    QTest::newRow("input") << Open(
        [](QWidget* parent) { dialogHost().input(parent, u"La data?"_s, u"Inserimento"_s); });
}

void TestWindows::boxesHaveNoFaults() {
    QFETCH(std::function<void(QWidget*)>, open);
    QWidget parent;
    parent.show();
    QStringList faults{u"no box has come"_s};
    QTimer::singleShot(100, this, [&faults] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            box->activateWindow();
            faults = windowFaults(*box);
            box->reject();
        }
    });
    open(&parent);
    QCOMPARE((faults).join(u"; "_s), QString());
}

} // namespace quor::test
