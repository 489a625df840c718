// The frame without a screen, for the tests that look at its files from outside. What it shows is
// told on standard output, one line each: "box TITLE|TEXT" with "\n" for a line end.
//
//   driver save FILE        opens the file, changes the first person's name, says "ready", waits
//                           for a line of input, and chooses the command that saves
//   driver keep FILE        the same, but the program ends without a question
//   driver state FILE...    remembers the files as opened, each after "ready" and a line of input
//   driver setting VALUE    stores a setting, after "ready" and a line of input
//   driver open FILE        opens the file and tells how it went
//   driver reach FILE       drops the file on the frame, then remembers it as opened and chooses it
//                           from the recent files, and tells how that went
//   driver export FILE OUT  opens the file and, after "ready" and a line of input, exports it
//   driver print FILE OUT PDF
//                           the same, but prints it into a file
//   driver visit FILE OUT   opens the file and every window on it, exports, previews and prints it

#include "core/Clock.h"
#include "export/WebBrowser.h"
#include "shell/ApplicationSetup.h"
#include "shell/Folders.h"
#include "shell/MDIForm1.h"
#include "shell/StateFile.h"
#include "storage/ProcessSetup.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/SettingsStore.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTextStream>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <functional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace quor;

namespace {

void say(const QString& text) {
    QString line = text;
    line.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
    std::fflush(stdout);
}

/// Somebody else does now what is to be done to the files.
void waitForLine() {
    say(u"ready"_s);
    for (int c = std::getchar(); c != '\n' && c != EOF; c = std::getchar()) {
    }
}

/// Tells every box and refuses everything; files and printed pages go where they are told to.
class TellingHost : public DialogHost {
  public:
    Answer message(QWidget* /*parent*/, const MessageBox& box) override {
        say(u"box "_s + box.title + u'|' + box.text);
        switch (box.kind) {
        case BoxKind::question:
        case BoxKind::loss:
        case BoxKind::openQuestion:
            return Answer::no;
        default:
            return Answer::ok;
        }
    }
    qsizetype choice(QWidget* /*parent*/, const ChoiceBox& box) override {
        say(u"choice "_s + box.title + u'|' + box.text);
        return box.buttons.size() - 1;
    }
    QString input(QWidget* /*parent*/, const QString& prompt, const QString& title) override {
        say(u"input "_s + title + u'|' + prompt);
        return {};
    }
    QString file(QWidget* /*parent*/, const FileRequest& request) override {
        say(u"file "_s + request.title);
        return {};
    }
    std::optional<QColor> colour(QWidget* /*parent*/, const QColor& /*initial*/,
                                 const QString& /*title*/) override {
        return std::nullopt;
    }
    std::optional<PrintChoice> print(QWidget* /*parent*/, const PrintRequest& request) override {
        say(u"print %1 pages"_s.arg(request.pageCount));
        PrintChoice choice;
        choice.file = printed;
        return printed.isEmpty() ? std::nullopt : std::optional(choice);
    }

    QString printed; ///< path of the file that printing writes
};

/// Longest time in which the event loop did not come round, in milliseconds.
class Pulse {
  public:
    Pulse() {
        m_since.start();
        QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
        m_timer.start(5);
    }
    void beat() { m_longest = std::max(m_longest, m_since.restart()); }
    [[nodiscard]] qint64 longest() const { return m_longest; }

  private:
    QTimer m_timer;
    QElapsedTimer m_since;
    qint64 m_longest = 0;
};

class House {
  public:
    /// @param home where the program's own files lie
    explicit House(const QString& home)
        : frame(program, home) {
        frame.show();
        QApplication::processEvents();
    }
    void open(const QString& file) {
        frame.start({.mode = StartMode::openFile, .text = file});
        QApplication::processEvents();
    }
    void change() {
        const QString name = u"Nuova Persona"_s;
        if (program.state.systemOpen) {
            program.state.systemMembers.at(0).name = name;
        } else {
            program.biorhythm.name = name;
        }
        program.state.modified = true;
    }
    /// Turns of the event loop until something is so, for a bounded time.
    bool waitFor(const std::function<bool()>& isSo, int seconds = 40) {
        QElapsedTimer since;
        since.start();
        while (!isSo()) {
            if (since.elapsed() > seconds * 1000) {
                return false;
            }
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return true;
    }
    [[nodiscard]] QDialog* dialog(const QString& name) const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return frame.findChild<QDialog*>(name);
    }

    FixedClock clock{QDate(2026, 11, 21)};
    TellingHost host;
    ScopedDialogHost scope{host};
    Program program;
    MDIForm1 frame;
};

int save(const QString& file, bool keep) {
    House house(QDir::homePath());
    house.open(file);
    house.change();
    waitForLine();
    if (keep) {
        house.frame.keepUnsavedWork();
        say(u"kept"_s);
        return 0;
    }
    house.frame.run(house.program.state.systemOpen ? Command::mnuSalvaSistema
                                                   : Command::mnuSalvaBioritmo);
    say(house.program.state.modified ? u"modified"_s : u"saved"_s);
    // Not asked about at the end.
    house.program.state.modified = false;
    return 0;
}

int remember(const QStringList& files) {
    const StateFile state(stateFolder());
    for (const QString& file : files) {
        waitForLine();
        state.addRecentFile(fileKind(file), file);
    }
    return 0;
}

int storeSetting(const QString& value) {
    waitForLine();
    say(saveSetting(u"Options"_s, u"FastStart"_s, value) ? u"stored"_s : u"refused"_s);
    return 0;
}

/// What a window needs at least, and what it would like, as it shows on this screen.
void tellWindow(const QString& what, const QWidget& window) {
    const QSize room = window.screen()->size();
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    say(u"window %1 %2x%3 %4"_s.arg(what)
            .arg(window.width())
            .arg(window.height())
            .arg(window.width() <= room.width() && window.height() <= room.height() &&
                         least.width() <= room.width() && least.height() <= room.height()
                     ? u"fits"_s
                     : u"TOO LARGE, at least %1x%2"_s.arg(least.width()).arg(least.height())));
}

void tellWindows(const House& house) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits("QDialog")) {
            tellWindow(window->objectName(), *window);
        }
    }
    tellWindow(u"frame"_s, house.frame);
    for (const QMdiSubWindow* window : house.frame.findChild<QMdiArea*>()->subWindowList()) {
        tellWindow(window->widget()->objectName(), *window);
    }
}

/// Turns of the event loop after something was opened, and how it went.
int tellAfterwards(const House& house, const Pulse& pulse) {
    QTimer::singleShot(300, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
    const AppState& state = house.program.state;
    qsizetype longest = house.program.biorhythm.name.size();
    for (const SystemMember& member : state.systemMembers) {
        longest = std::max(longest, member.name.size());
    }
    say(u"members %1 longest %2"_s.arg(state.systemOpen ? state.systemCount : 0).arg(longest));
    say(u"gap %1 ms"_s.arg(pulse.longest()));
    tellWindows(house);
    return 0;
}

int open(const QString& file) {
    House house(QDir::homePath());
    const Pulse pulse;
    QElapsedTimer since;
    since.start();
    house.open(file);
    say(u"opened %1 ms"_s.arg(since.elapsed()));
    return tellAfterwards(house, pulse);
}

int reach(const QString& file) {
    House house(QDir::homePath());
    const Pulse pulse;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent entering({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&house.frame, &entering);
    QDropEvent dropping({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&house.frame, &dropping);
    say(entering.isAccepted() && dropping.isAccepted() ? u"dropped"_s : u"not taken"_s);
    QApplication::processEvents();

    const FileKind kind = fileKind(file);
    StateFile(stateFolder()).addRecentFile(kind, file);
    auto* recent = house.frame.findChild<QMenu*>(
        kind == FileKind::system ? u"mnuSistemiRecenti"_s : u"mnuBioritmiRecenti"_s);
    emit qobject_cast<QMenu*>(recent->parent())->aboutToShow();
    say(u"recent %1"_s.arg(recent->actions().size()));
    recent->actions().constFirst()->trigger();
    return tellAfterwards(house, pulse);
}

void press(const QWidget& window, const QString& name) {
    if (auto* button = window.findChild<QAbstractButton*>(name)) {
        button->click();
    }
}

/// Everything of the system's window that changes nothing in it.
void visitSystem(House& house) {
    const auto* window = house.frame.findChild<QTreeView*>(u"TreeView1"_s);
    const auto* model = window->model();
    auto* tree = house.frame.findChild<QTreeView*>(u"TreeView1"_s);
    tree->expandAll();
    for (int member = 0; member < model->rowCount(model->index(0, 0)); ++member) {
        const QModelIndex branch = model->index(member, 0, model->index(0, 0));
        tree->setCurrentIndex(branch);
        for (int view = 0; view < model->rowCount(branch); ++view) {
            const QModelIndex node = model->index(view, 0, branch);
            tree->setCurrentIndex(node);
            emit tree->activated(node);
            emit tree->doubleClicked(node);
            QApplication::processEvents();
        }
    }
    for (int command = 3; command <= 20; ++command) {
        const QString name = u"Command%1"_s.arg(command);
        if (command != 7) { // takes a member away
            press(*tree->window()->findChild<QWidget*>(u"FProj"_s), name);
            QApplication::processEvents();
        }
    }
}

bool exportAll(House& house, Command command, PrintMode mode) {
    house.frame.run(command);
    QDialog* window = house.dialog(u"FEspBio"_s);
    if (window == nullptr) {
        return false;
    }
    for (const QString& check : {u"Check1"_s, u"Check2"_s, u"Check3"_s}) {
        window->findChild<QCheckBox*>(check)->setChecked(true);
    }
    window->findChild<QComboBox*>(u"Combo1"_s)->setCurrentIndex(mode == PrintMode::print ? 1 : 0);
    press(*window, u"Command1"_s);
    tellWindows(house);
    if (!house.waitFor([&house] { return house.frame.isEnabled(); })) {
        return false;
    }
    const auto* log = window->findChild<QListWidget*>(u"List1"_s);
    for (int row = 0; row < log->count(); ++row) {
        say(u"log "_s + log->item(row)->text());
    }
    window->close();
    return true;
}

bool print(House& house, Command command) {
    house.frame.run(command);
    QDialog* window = house.dialog(u"FStampaBio"_s);
    if (window == nullptr) {
        return false;
    }
    const auto* start = window->findChild<QPushButton*>(u"Command1"_s);
    press(*window, u"Command1"_s);
    const bool finished = house.waitFor([start] { return start->isEnabled(); });
    house.waitFor([] { return false; }, 0);
    tellWindows(house);
    window->close();
    return finished;
}

/// What comes of a run of exports or a print once somebody has spoilt a folder.
int exportOrPrint(const QString& file, const QString& out, const QString& printed) {
    House house(QDir::homePath());
    house.host.printed = printed;
    house.open(file);
    house.program.state.exportFolder = out;
    waitForLine();
    const bool ended = printed.isEmpty() ? exportAll(house, Command::mnuEsporta, PrintMode::preview)
                                         : print(house, Command::mnuStampa);
    say(ended && house.frame.isEnabled() ? u"goes on"_s : u"HANGS"_s);
    house.program.state.modified = false;
    return 0;
}

int visit(const QString& file, const QString& out) {
    House house(QDir::homePath());
    house.host.printed = QDir(out).filePath(u"stampa.pdf"_s);
    house.open(file);
    house.program.state.exportFolder = out;
    const bool isSystem = house.program.state.systemOpen;
    if (isSystem) {
        visitSystem(house);
    } else {
        for (const Command view :
             {Command::mnuGrafico, Command::mnuStatoSettimanale, Command::mnuStatoOdierno,
              Command::mnuPrevisioni, Command::mnuOpzioni}) {
            house.frame.run(view);
            QApplication::processEvents();
        }
    }
    tellWindows(house);
    house.frame.grab();
    bool done = exportAll(house, isSystem ? Command::mnuEsportaSistema : Command::mnuEsporta,
                          PrintMode::preview);
    if (!isSystem) {
        done = print(house, Command::mnuAnteprimaDiStampa) && done;
        done = print(house, Command::mnuStampa) && done;
    }
    say(done ? u"visited"_s : u"NOT DONE"_s);
    house.program.state.modified = false;
    return done ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    setUpApplication(application);
    failAtFileSizeLimit();
    QStringList words = QApplication::arguments().sliced(1);
    const QString task = words.isEmpty() ? QString() : words.takeFirst();
    const auto peak = [](int status) {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        say(u"peak %1 MiB"_s.arg(usage.ru_maxrss / 1024));
        return status;
    };
    if ((task == u"save"_s || task == u"keep"_s) && words.size() == 1) {
        return save(words[0], task == u"keep"_s);
    }
    if (task == u"state"_s) {
        return remember(words);
    }
    if (task == u"setting"_s && words.size() == 1) {
        return storeSetting(words[0]);
    }
    if (task == u"open"_s && words.size() == 1) {
        return peak(open(words[0]));
    }
    if (task == u"reach"_s && words.size() == 1) {
        return peak(reach(words[0]));
    }
    if (task == u"export"_s && words.size() == 2) {
        return exportOrPrint(words[0], words[1], {});
    }
    if (task == u"print"_s && words.size() == 3) {
        return exportOrPrint(words[0], words[1], words[2]);
    }
    if (task == u"visit"_s && words.size() == 2) {
        return peak(visit(words[0], words[1]));
    }
    std::fputs("usage: see the head of driver.cpp\n", stderr);
    return 2;
}
