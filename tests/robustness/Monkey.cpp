#include "robustness/Monkey.h"

#include "export/WebBrowser.h"
#include "toolkit/ChildWindow.h"

#include "robustness/Journal.h"
#include "robustness/Turns.h"
#include "robustness/VirtualClock.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScreen>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QWheelEvent>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::test {

namespace {

/// The widget of a window of the windowing system.
QWidget* widgetOf(const QWindow* window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowHandle() == window) {
            return widget;
        }
    }
    return nullptr;
}

QString nameOf(const QWidget* widget) {
    QString name = QString::fromLatin1(widget->metaObject()->className());
    if (!widget->objectName().isEmpty()) {
        name += u' ' + widget->objectName();
    }
    return name;
}

bool isInside(const QWidget* window, const QWidget* ancestor) {
    for (; window != nullptr; window = window->parentWidget()) {
        if (window == ancestor) {
            return true;
        }
    }
    return false;
}

/// Whether a modal window keeps the user from this one. The toolkit does so by itself with keys and
/// mouse; a close request it lets through when the program itself makes it.
/// @param windows the visible ones in the order in which they were made
bool isBlocked(const QWidget* window, const QList<QWidget*>& windows) {
    for (auto it = windows.crbegin(); it != windows.crend(); ++it) {
        const QWidget* modal = *it;
        if (modal->windowModality() == Qt::NonModal) {
            continue;
        }
        if (isInside(window, modal)) {
            return false;
        }
        if (modal->windowModality() == Qt::ApplicationModal) {
            return true;
        }
        for (const QWidget* own = window; own != nullptr; own = own->parentWidget()) {
            if (isInside(modal, own->window())) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

Monkey::Monkey(std::uint64_t seed, Limits limits, Means means)
    : m_random(seed)
    , m_limits(limits)
    , m_means(means)
    , m_start(realTime()) {}

void Monkey::take(MDIForm1& frame, Program& program) {
    m_frame = &frame;
    m_program = &program;
    m_firstAction = actionCount();
    m_ending = false;
    m_patient = chance(70);
    m_waitedTurns = 0;
    m_hands.clear();
    m_timer = startTimer(0);
}

void Monkey::leave() {
    killTimer(m_timer);
    m_timer = 0;
    m_program = nullptr;
}

/// When the time is over, one action more is asked for. So a run that ends by its time ends as one
/// that was asked for that number, and can be repeated.
bool Monkey::isDone() {
    if (m_limits.time && realTime() - m_start >= *m_limits.time) {
        m_limits.time.reset();
        m_limits.actions = std::min(m_limits.actions, actionCount() + 1);
    }
    if (actionCount() < m_limits.actions) {
        return false;
    }
    noteEnd(m_limits.actions);
    return true;
}

StartRequest Monkey::startRequest() {
    switch (below(6)) {
    case 0:
        return {.mode = StartMode::openFile, .text = oneOf(m_playground.toOpen())};
    case 1:
        return {.mode = StartMode::commandLineText,
                .text = u'"' + oneOf(m_playground.toOpen()) + u'"'};
    case 2:
        return {.mode = StartMode::commandLineText, .text = oneOf(hostileTexts())};
    default:
        return {};
    }
}

void Monkey::prepareNextRun() {
    if (chance(20)) {
        m_playground.tidy();
    }
    if (chance(20)) {
        // What the program remembers by itself comes back damaged.
        QDir state(qEnvironmentVariable("XDG_STATE_HOME") + u"/quor"_s);
        QStringList files = state.entryList(QDir::Files, QDir::Name);
        const QDir recovery(state.filePath(u"recupero"_s));
        if (!files.isEmpty()) {
            QFile file(state.filePath(oneOf(files)));
            if (file.open(QIODevice::ReadWrite) && file.size() > 0) {
                file.seek(static_cast<qint64>(below(static_cast<std::size_t>(file.size()))));
                file.write(oneOf(hostileTexts()).first(0).toUtf8() + "\xff[x]=%");
            }
        }
    }
    m_clock.set(chance(80) ? QDate(2026, 11, 21) : QDate(between(1600, 9000), between(1, 12), 28));
}

/// A step, and before it the timer of the next, so that a box which opens now is played with too.
void Monkey::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer) {
        return;
    }
    killTimer(m_timer);
    m_timer = startTimer(0);
    noteLife();
    countTurn();
    if (m_ending || m_program == nullptr || m_frame == nullptr) {
        return;
    }
    if (waitsForRenderer()) {
        return;
    }
    if (restsForFiles()) {
        return;
    }
    advanceClock(3ms);
    if (!m_hands.empty()) {
        const auto step = std::move(m_hands.front());
        m_hands.pop_front();
        step();
        return;
    }
    checkProgram();
    if (isDone()) {
        m_ending = true;
        QCoreApplication::exit(0);
        return;
    }
    decide();
}

/// The renderer is a process of its own, which takes what time it takes. The seed says once
/// whether it is let finish; if not, its window is closed at once.
bool Monkey::waitsForRenderer() {
    constexpr int usual = 100; // most are done in a few
    constexpr int longest = 1'000'000;
    WebBrowser* busy = busyBrowser();
    if (busy == nullptr) {
        if (m_waitedTurns > 0) {
            m_waitedTurns = 0;
            m_patient = chance(70); // the next time
        }
        return false;
    }
    if (++m_waitedTurns > longest) {
        reportFault(u"the renderer is never done"_s);
    }
    if (m_waitedTurns > usual) {
        pause();
    }
    if (!m_patient) {
        m_patient = true; // should it stay
        note(u"close the window that loads a page"_s);
        requestClose(busy->window());
    }
    return true;
}

WebBrowser* Monkey::busyBrowser() const {
    WebBrowser* busy = nullptr;
    if (m_frame != nullptr) {
        for (auto* browser : m_frame->findChildren<WebBrowser*>()) {
            busy = browser->isBusy() ? browser : busy;
        }
    }
    return busy;
}

bool Monkey::waitsForProcesses() const {
    return m_patient || busyBrowser() == nullptr;
}

/// A file dialog needs some turns of the event loop to show what was read of its folder.
bool Monkey::restsForFiles() {
    constexpr int turns = 6;
    if (m_restedTurns > 0) {
        --m_restedTurns;
        return m_restedTurns > 0;
    }
    if (qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr) {
        m_restedTurns = turns;
        return true;
    }
    return false;
}

std::size_t Monkey::below(std::size_t count) {
    return count == 0 ? 0 : static_cast<std::size_t>(m_random() % count);
}

bool Monkey::chance(int percent) {
    return m_random() % 100 < static_cast<std::uint64_t>(percent);
}

int Monkey::between(int least, int greatest) {
    return least + static_cast<int>(below(static_cast<std::size_t>(greatest - least + 1)));
}

QPoint Monkey::pointIn(const QRect& area) {
    const int x = between(area.left(), std::max(area.left(), area.right()));
    const int y = between(area.top(), std::max(area.top(), area.bottom()));
    return {x, y};
}

QString Monkey::someText() {
    switch (below(8)) {
    case 0:
    case 1:
        return oneOf(names());
    case 2:
    case 3:
        return oneOf(dates());
    case 4:
        return oneOf(numbers());
    default:
        return oneOf(hostileTexts());
    }
}

/// Mostly what the field is for: what follows from a form that is refused is soon seen.
QString Monkey::textFor(const QWidget& field) {
    if (chance(25)) {
        return someText();
    }
    const QWidget* window = field.window();
    const QString className = QString::fromLatin1(window->metaObject()->className());
    if (className == u"quor::FIns"_s) {
        return field.objectName() == u"Text3"_s ? oneOf(names()) : oneOf(dates());
    }
    if (className.startsWith(u"quor::FGr"_s)) {
        return oneOf(numbers());
    }
    return chance(70) ? oneOf(dates()) : someText();
}

Qt::KeyboardModifiers Monkey::someModifiers() {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, chance(10));
    modifiers.setFlag(Qt::ControlModifier, chance(10));
    modifiers.setFlag(Qt::AltModifier, chance(5));
    return modifiers;
}

/// In the order in which they were made, which does not change from run to run.
QList<QWidget*> Monkey::windows() const {
    QList<QWidget*> all;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        QWidget* widget = window->isVisible() ? widgetOf(window) : nullptr;
        if (widget != nullptr && widget->isVisible()) {
            all << widget;
        }
    }
    return all;
}

QWidget* Monkey::someWindow() {
    const QList<QWidget*> all = windows();
    return all.isEmpty() ? nullptr : oneOf(all);
}

template<typename Widget> QList<Widget*> Monkey::usable(QWidget* window) const {
    QList<Widget*> all;
    for (auto* widget : window->findChildren<Widget*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == window &&
            !widget->visibleRegion().isEmpty()) {
            all << widget;
        }
    }
    return all;
}

void Monkey::later(std::function<void()> step) {
    m_hands.push_back(std::move(step));
}

void Monkey::note(const QString& action) {
    noteAction(isAloud() ? action + u"  ["_s + sight() + u']' : action);
}

/// Everything that is to be seen, in a few letters. Two runs that still do the same may already see
/// something else.
QString Monkey::sight() const {
    QByteArray seen;
    QDataStream stream(&seen, QIODevice::WriteOnly);
    for (const QWidget* window : windows()) {
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            if (!widget->isVisible()) {
                continue;
            }
            const QString text = widget->property("text").toString();
            stream << nameOf(widget) << widget->geometry() << widget->isEnabled()
                   << widget->hasFocus() << QString(text).replace(QDir::tempPath(), u"..."_s);
            if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
                stream << (view->model() != nullptr ? view->model()->rowCount(view->rootIndex())
                                                    : 0)
                       << view->currentIndex().row();
            }
        }
    }
    const QByteArray sum = QCryptographicHash::hash(seen, QCryptographicHash::Md5);
    return QString::fromLatin1(sum.first(4).toHex());
}

void Monkey::press(QWidget* window, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    const QPointer<QWindow> target = window->windowHandle();
    later([this, target, at, button, keys] {
        if (target != nullptr) {
            m_mouseTime += 10;
            qt_handleMouseEvent(target, at, target->mapToGlobal(at), button, button,
                                QEvent::MouseButtonPress, keys, m_mouseTime);
        }
    });
}

void Monkey::release(QWidget* window, QPoint at, Qt::MouseButton button,
                     Qt::KeyboardModifiers keys) {
    const QPointer<QWindow> target = window->windowHandle();
    later([this, target, at, button, keys] {
        // A button goes up wherever that is, also when its window has gone meanwhile.
        QWindow* receiver = target != nullptr ? target.data() : m_frame->windowHandle();
        if (receiver != nullptr) {
            m_mouseTime += 10;
            qt_handleMouseEvent(receiver, at, receiver->mapToGlobal(at), Qt::NoButton, button,
                                QEvent::MouseButtonRelease, keys, m_mouseTime);
        }
    });
}

void Monkey::move(QWidget* window, QPoint at, Qt::MouseButtons buttons) {
    const QPointer<QWindow> target = window->windowHandle();
    later([this, target, at, buttons] {
        if (target != nullptr) {
            m_mouseTime += 10;
            qt_handleMouseEvent(target, at, target->mapToGlobal(at), buttons, Qt::NoButton,
                                QEvent::MouseMove, {}, m_mouseTime);
        }
    });
}

void Monkey::click(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers keys,
                   int times) {
    QWidget* window = widget->window();
    if (window->windowHandle() == nullptr) {
        return;
    }
    const QPoint inWindow = widget->mapTo(window, at);
    m_mouseTime += 1000; // not a double click with the one before
    move(window, inWindow);
    for (int i = 0; i < times; ++i) {
        press(window, inWindow, button, keys);
        release(window, inWindow, button, keys);
    }
}

void Monkey::clickOn(QWidget* widget) {
    const QRect seen = widget->visibleRegion().boundingRect();
    click(widget, seen.center());
}

void Monkey::drag(QWidget* window, QPoint from, QPoint to, Qt::MouseButton button) {
    m_mouseTime += 1000;
    move(window, from);
    press(window, from, button);
    for (int i = 1; i <= 3; ++i) {
        move(window, from + (to - from) * i / 3, button);
    }
    release(window, to, button);
}

void Monkey::turnWheel(QWidget* window, QPoint at) {
    const QPointer<QWindow> target = window->windowHandle();
    const QPoint angle(chance(15) ? between(-3, 3) * 120 : 0, between(-5, 5) * 120);
    const Qt::KeyboardModifiers modifiers = someModifiers();
    later([target, at, angle, modifiers] {
        if (target != nullptr) {
            QWheelEvent event(at, target->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(target, &event);
        }
    });
}

/// To the window that has the keyboard then.
void Monkey::pressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    later([this, key, modifiers, text] {
        const QPointer<QWindow> target = QGuiApplication::focusWindow() != nullptr
                                             ? QGuiApplication::focusWindow()
                                             : m_frame->windowHandle();
        if (target == nullptr) {
            return;
        }
        qt_handleKeyEvent(target, QEvent::KeyPress, key, modifiers, text);
        if (target != nullptr) {
            qt_handleKeyEvent(target, QEvent::KeyRelease, key, modifiers, text);
        }
    });
}

void Monkey::type(const QString& text) {
    if (text.size() > 20 || chance(10)) {
        later([text] { QGuiApplication::clipboard()->setText(text); });
        pressKey(Qt::Key_V, Qt::ControlModifier);
        return;
    }
    if (chance(10)) {
        later([text] {
            if (QObject* object = QGuiApplication::focusObject()) {
                QInputMethodEvent event;
                event.setCommitString(text);
                QCoreApplication::sendEvent(object, &event);
            }
        });
        return;
    }
    for (const QChar character : text) {
        const int key = character.unicode() < 128 ? character.toUpper().unicode() : 0;
        pressKey(key, {}, QString(character));
    }
}

void Monkey::fill(QWidget* field, const QString& text) {
    note(u"type \"%1\" into %2"_s.arg(text.left(40), nameOf(field)));
    clickOn(field);
    pressKey(Qt::Key_A, Qt::ControlModifier);
    pressKey(Qt::Key_Delete);
    type(text);
}

void Monkey::decide() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        decideInPopup(popup);
        return;
    }
    if (actionCount() - m_firstAction > 4000 || below(700) == 0) {
        endProgram();
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
        decideInFileDialog(dialog);
        return;
    }
    if (modal != nullptr) {
        if (chance(6)) {
            if (m_means == Means::all && chance(50)) {
                helpBlindly();
                return;
            }
            note(u"play behind the box"_s);
            if (QWidget* window = someWindow(); window != nullptr) {
                clickSomewhere(window);
            }
        } else if (qobject_cast<QMessageBox*>(modal) != nullptr) {
            decideInBox(modal);
        } else {
            decideInWindow(modal);
        }
        return;
    }
    const QList<QWidget*> all = windows();
    if (all.isEmpty()) {
        endProgram();
        return;
    }
    QWidget* window = chance(40) ? m_frame.data() : oneOf(all);
    if (window == m_frame) {
        decideInFrame();
    } else {
        decideInWindow(window);
    }
}

void Monkey::decideInPopup(QWidget* popup) {
    const auto* menu = qobject_cast<QMenu*>(popup);
    const std::size_t die = below(100);
    if (die < 55) {
        QPoint at = pointIn(popup->rect());
        QString what = nameOf(popup);
        if (menu != nullptr && !menu->actions().isEmpty()) {
            QAction* action = oneOf(menu->actions());
            at = menu->actionGeometry(action).center();
            what += u": "_s + action->text();
        }
        note(u"choose in %1"_s.arg(what));
        click(popup, at);
    } else if (die < 65) {
        note(u"Escape in %1"_s.arg(nameOf(popup)));
        pressKey(Qt::Key_Escape);
    } else if (die < 90) {
        static const QList<int> keys{Qt::Key_Down,   Qt::Key_Up,   Qt::Key_Left, Qt::Key_Right,
                                     Qt::Key_Return, Qt::Key_Home, Qt::Key_End,  Qt::Key_Tab};
        note(u"keys in %1"_s.arg(nameOf(popup)));
        for (int i = between(1, 5); i > 0; --i) {
            pressKey(oneOf(keys));
        }
    } else if (die < 95) {
        note(u"click beside %1"_s.arg(nameOf(popup)));
        clickSomewhere(m_frame);
    } else {
        const int letter = between(Qt::Key_A, Qt::Key_Z);
        note(u"letter in %1"_s.arg(nameOf(popup)));
        pressKey(letter, {}, QString(QChar(letter)).toLower());
    }
}

/// Nothing here leaves the playground: names are typed whole, and the list is left alone.
void Monkey::decideInFileDialog(QFileDialog* dialog) {
    dialog->setOption(QFileDialog::ReadOnly);
    auto* name = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    const std::size_t die = below(100);
    if (name == nullptr || die < 20) {
        note(u"Escape in the file dialog"_s);
        pressKey(Qt::Key_Escape);
    } else if (die < 30) {
        note(u"close the file dialog"_s);
        const QPointer<QWindow> window = dialog->windowHandle();
        later([window] {
            if (window != nullptr) {
                window->close();
            }
        });
    } else if (die < 85) {
        const QString path = dialog->acceptMode() == QFileDialog::AcceptOpen
                                 ? oneOf(m_playground.toOpen())
                                 : oneOf(m_playground.toSave());
        note(u"file dialog: "_s + m_playground.nameOf(path));
        const QPointer<QLineEdit> field = name;
        later([field, path] {
            if (field != nullptr) {
                field->setText(path);
                field->setFocus();
            }
        });
        pressKey(Qt::Key_Return);
    } else {
        note(u"resize the file dialog"_s);
        dialog->resize(between(50, 900), between(50, 700));
    }
}

void Monkey::decideInBox(QWidget* box) {
    const auto* message = qobject_cast<QMessageBox*>(box);
    const QString text = message != nullptr ? message->text().left(60) : QString();
    const std::size_t die = below(100);
    if (die < 75) {
        const auto buttons = usable<QAbstractButton>(box);
        if (!buttons.isEmpty()) {
            auto* button = oneOf(buttons);
            note(u"box \"%1\": %2"_s.arg(text, button->text()));
            clickOn(button);
            return;
        }
    }
    if (die < 85) {
        note(u"box \"%1\": Escape"_s.arg(text));
        pressKey(Qt::Key_Escape);
    } else if (die < 92) {
        note(u"box \"%1\": Enter"_s.arg(text));
        pressKey(Qt::Key_Return);
    } else {
        note(u"box \"%1\": close"_s.arg(text));
        const QPointer<QWindow> window = box->windowHandle();
        later([window] {
            if (window != nullptr) {
                window->close();
            }
        });
    }
}

void Monkey::decideInWindow(QWidget* window) {
    const std::size_t die = below(100);
    if (die < 15) {
        fillForm(window);
    } else if (die < 30) {
        typeSomewhere(window);
    } else if (die < 60) {
        clickSomeButton(window);
    } else if (die < (m_means == Means::all ? 73 : 75)) {
        note(u"click in %1"_s.arg(nameOf(window)));
        clickSomewhere(window);
    } else if (die < 75) {
        helpBlindly();
    } else if (die < 86) {
        pressSomeKey();
    } else if (die < 90) {
        const QPoint from = pointIn(window->rect());
        note(u"drag in %1"_s.arg(nameOf(window)));
        drag(window, from, pointIn(window->rect()), chance(85) ? Qt::LeftButton : Qt::RightButton);
    } else if (die < 93) {
        note(u"wheel in %1"_s.arg(nameOf(window)));
        turnWheel(window, pointIn(window->rect()));
    } else if (die < 97) {
        closeSomeWindow();
    } else if (die < 99) {
        changeSomeWindow();
    } else {
        letTimePass();
    }
}

void Monkey::decideInFrame() {
    const std::size_t die = below(100);
    if (die < 22) {
        chooseFromMenuBar();
    } else if (die < 36) {
        if (auto* toolbar = m_frame->findChild<QToolBar*>(u"Toolbar1"_s)) {
            clickSomeButton(toolbar);
        }
    } else if (die < 44) {
        enterSomebody();
    } else if (die < 47) {
        dropFiles();
    } else if (die < 48) {
        touchFiles();
    } else {
        decideInWindow(m_frame);
    }
}

/// Every field with something, then the button that Enter presses.
void Monkey::fillForm(QWidget* window) {
    const auto fields = usable<QLineEdit>(window);
    if (fields.isEmpty()) {
        clickSomeButton(window);
        return;
    }
    for (QLineEdit* field : fields) {
        fill(field, textFor(*field));
    }
    pressKey(Qt::Key_Return);
}

void Monkey::clickSomewhere(QWidget* window) {
    const auto widgets = usable<QWidget>(window);
    QWidget* widget = widgets.isEmpty() ? window : oneOf(widgets);
    const QPoint at = pointIn(widget->visibleRegion().boundingRect());
    static const QList<Qt::MouseButton> buttons{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                                Qt::RightButton, Qt::MiddleButton};
    click(widget, at, oneOf(buttons), someModifiers(), chance(15) ? 2 : 1);
}

void Monkey::pressSomeKey() {
    struct Stroke {
        int key;
        Qt::KeyboardModifiers modifiers;
    };
    static const QList<Stroke> strokes{
        {Qt::Key_Tab, {}},
        {Qt::Key_Backtab, Qt::ShiftModifier},
        {Qt::Key_Return, {}},
        {Qt::Key_Enter, Qt::KeypadModifier},
        {Qt::Key_Escape, {}},
        {Qt::Key_Space, {}},
        {Qt::Key_Up, {}},
        {Qt::Key_Down, {}},
        {Qt::Key_Left, {}},
        {Qt::Key_Right, {}},
        {Qt::Key_Right, Qt::ControlModifier},
        {Qt::Key_Home, {}},
        {Qt::Key_End, {}},
        {Qt::Key_PageUp, {}},
        {Qt::Key_PageDown, {}},
        {Qt::Key_Delete, {}},
        {Qt::Key_Backspace, {}},
        {Qt::Key_Insert, {}},
        {Qt::Key_F1, {}},
        {Qt::Key_F2, {}},
        {Qt::Key_F5, {}},
        {Qt::Key_F10, {}},
        {Qt::Key_F10, Qt::ShiftModifier},
        {Qt::Key_Menu, {}},
        {Qt::Key_W, Qt::ControlModifier},
        {Qt::Key_F4, Qt::ControlModifier},
        {Qt::Key_F6, Qt::ControlModifier},
        {Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier},
        {Qt::Key_Tab, Qt::ControlModifier},
        {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier},
        {Qt::Key_V, Qt::ControlModifier},
        {Qt::Key_X, Qt::ControlModifier},
        {Qt::Key_Z, Qt::ControlModifier},
        {Qt::Key_F, Qt::ControlModifier},
        {Qt::Key_P, Qt::ControlModifier},
        {Qt::Key_Plus, Qt::ControlModifier},
        {Qt::Key_Minus, Qt::ControlModifier},
        {Qt::Key_0, Qt::ControlModifier},
        {Qt::Key_Minus, Qt::AltModifier},
        {Qt::Key_Left, Qt::AltModifier},
        {Qt::Key_Asterisk, {}},
        {Qt::Key_Plus, {}},
        {Qt::Key_Minus, {}},
    };
    if (chance(20)) {
        const int letter = between(Qt::Key_A, Qt::Key_Z);
        note(u"Alt+"_s + QChar(letter));
        pressKey(letter, Qt::AltModifier, QString(QChar(letter)).toLower());
        return;
    }
    const Stroke stroke = oneOf(strokes);
    note(u"key "_s + QKeySequence(stroke.key | stroke.modifiers).toString());
    for (int i = chance(20) ? between(2, 20) : 1; i > 0; --i) {
        pressKey(stroke.key, stroke.modifiers);
    }
}

void Monkey::typeSomewhere(QWidget* window) {
    const auto fields = usable<QLineEdit>(window);
    if (!fields.isEmpty() && chance(80)) {
        QLineEdit* field = oneOf(fields);
        fill(field, textFor(*field));
        if (chance(50)) {
            pressKey(chance(70) ? Qt::Key_Return : Qt::Key_Tab);
        }
        return;
    }
    const QString text = someText();
    note(u"type \"%1\""_s.arg(text.left(40)));
    type(text);
}

void Monkey::clickSomeButton(QWidget* window) {
    QList<QAbstractButton*> buttons;
    for (auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->isEnabled() && !button->visibleRegion().isEmpty()) {
            buttons << button;
        }
    }
    if (buttons.isEmpty()) {
        note(u"key Escape"_s);
        pressKey(Qt::Key_Escape);
        return;
    }
    QAbstractButton* button = oneOf(buttons);
    note(u"press %1 \"%2\" of %3"_s.arg(nameOf(button), button->text(), nameOf(button->window())));
    if (chance(85)) {
        clickOn(button);
    } else {
        const QRect seen = button->visibleRegion().boundingRect();
        click(button, pointIn(seen), Qt::LeftButton, {}, chance(50) ? 2 : 1);
    }
}

/// As the windowing system or the close box in a title bar asks for it.
void Monkey::closeSomeWindow() {
    if (chance(50)) {
        const auto children = m_frame->findChild<QMdiArea*>()->subWindowList();
        if (!children.isEmpty() && QApplication::activeModalWidget() == nullptr &&
            m_frame->isEnabled()) {
            const QPointer<QMdiSubWindow> child = oneOf(children);
            note(u"close the child %1"_s.arg(child->windowTitle().left(40)));
            later([child] {
                if (child != nullptr) {
                    child->close();
                }
            });
            return;
        }
    }
    QList<QWidget*> all = windows();
    if (!chance(5)) {
        all.removeAll(m_frame);
    }
    if (all.isEmpty()) {
        note(u"key Escape"_s);
        pressKey(Qt::Key_Escape);
        return;
    }
    const QPointer<QWidget> widget = oneOf(all);
    note(u"close %1"_s.arg(nameOf(widget)));
    later([this, widget] { requestClose(widget); });
}

void Monkey::requestClose(QWidget* window) {
    if (window != nullptr && window->windowHandle() != nullptr && !isBlocked(window, windows())) {
        window->windowHandle()->close();
    }
}

void Monkey::changeSomeWindow() {
    QWidget* widget = someWindow();
    if (chance(40) && m_frame->isVisible()) {
        const auto children = m_frame->findChild<QMdiArea*>()->subWindowList();
        widget = children.isEmpty() ? widget : oneOf(children);
    }
    if (widget == nullptr) {
        return;
    }
    static const QList<Qt::WindowState> states{Qt::WindowNoState, Qt::WindowMaximized,
                                               Qt::WindowMinimized};
    if (widget->isModal() || chance(50)) {
        const QSize size(between(1, 1600), between(1, 1200));
        note(u"resize %1 to %2 x %3"_s.arg(nameOf(widget)).arg(size.width()).arg(size.height()));
        widget->resize(size);
    } else {
        const Qt::WindowState state = oneOf(states);
        note(u"state %1 of %2"_s.arg(int(state)).arg(nameOf(widget)));
        widget->setWindowState(state);
    }
}

void Monkey::dropFiles() {
    QList<QUrl> urls;
    for (int i = chance(85) ? 1 : between(0, 3); i > 0; --i) {
        urls << (chance(90) ? QUrl::fromLocalFile(oneOf(m_playground.toOpen()))
                            : QUrl(u"https://example.org/x.bio"_s));
    }
    note(u"drop "_s + (urls.isEmpty() ? QString() : urls.constFirst().fileName()));
    later([this, urls] {
        // The windowing system does not let a window be dropped on that a box blocks, nor one that
        // is disabled.
        if (m_frame == nullptr || !m_frame->isEnabled() ||
            QApplication::activeModalWidget() != nullptr) {
            return;
        }
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_frame, &enter);
        QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_frame, &drop);
    });
}

void Monkey::chooseFromMenuBar() {
    QList<QAction*> titles = m_frame->menuBar()->actions();
    titles.removeIf([](const QAction* title) { return !title->isVisible(); });
    if (titles.isEmpty()) {
        return;
    }
    QAction* title = oneOf(titles);
    note(u"menu %1"_s.arg(title->text()));
    click(m_frame->menuBar(), m_frame->menuBar()->actionGeometry(title).center());
}

/// The way to everything else, which chance alone finds too seldom.
void Monkey::enterSomebody() {
    auto* command = m_frame->findChild<QAction*>(u"mnuCalcola"_s);
    if (command == nullptr || !command->isEnabled() || !m_frame->isEnabled()) {
        note(u"key Escape"_s);
        pressKey(Qt::Key_Escape);
        return;
    }
    if (chance(25)) {
        const QString path = oneOf(m_playground.good());
        note(u"open "_s + m_playground.nameOf(path));
        later([this, path] {
            if (m_frame != nullptr && m_frame->isEnabled() &&
                QApplication::activeModalWidget() == nullptr) {
                QMimeData data;
                data.setUrls({QUrl::fromLocalFile(path)});
                QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
                QCoreApplication::sendEvent(m_frame, &drop);
            }
        });
        return;
    }
    const QString name = oneOf(names());
    const QString birth = chance(80) ? oneOf(dates()) : someText();
    note(u"enter %1, %2"_s.arg(name, birth.left(30)));
    const QPointer<QAction> action = command;
    later([action] {
        if (action != nullptr && QApplication::activeModalWidget() == nullptr) {
            action->trigger();
        }
    });
    later([this, name, birth] {
        for (QWidget* window : windows()) {
            auto* nameField = window->findChild<QLineEdit*>(u"Text3"_s);
            auto* birthField = window->findChild<QLineEdit*>(u"Text1"_s);
            auto* button = window->findChild<QAbstractButton*>(u"Command2"_s);
            if (nameField != nullptr && birthField != nullptr && button != nullptr &&
                window->isEnabled() && QApplication::activePopupWidget() == nullptr) {
                nameField->setText(name);
                birthField->setText(birth);
                for (auto* check : usable<QAbstractButton>(window)) {
                    if (check->isCheckable() && chance(40)) {
                        clickOn(check);
                    }
                }
                clickOn(button);
                return;
            }
        }
    });
}

/// Does what an assistive tool can do, which reaches what no hand reaches: behind a box, and in a
/// menu that is closed.
void Monkey::helpBlindly() {
    QWidget* window = someWindow();
    if (window == nullptr || qobject_cast<QFileDialog*>(window) != nullptr) {
        return;
    }
    QWidget* widget = oneOf(window->findChildren<QWidget*>() << window);
    QString name = nameOf(widget);
    QAccessibleInterface* thing = QAccessible::queryAccessibleInterface(widget);
    while (thing != nullptr && thing->childCount() > 0 && chance(60)) {
        const auto child = static_cast<int>(below(static_cast<std::size_t>(thing->childCount())));
        name += u'/' + QString::number(child);
        thing = thing->child(child);
    }
    QAccessibleActionInterface* hands =
        thing != nullptr && thing->isValid() ? thing->actionInterface() : nullptr;
    const QStringList acts = hands != nullptr ? hands->actionNames() : QStringList();
    if (acts.isEmpty()) {
        note(u"an assistive tool looks at "_s + name);
        return;
    }
    const QString act = oneOf(acts);
    note(u"an assistive tool: %1 %2"_s.arg(act, name));
    hands->doAction(act);
}

void Monkey::letTimePass() {
    const std::chrono::milliseconds time(between(1, 3000));
    note(u"%1 ms pass"_s.arg(time.count()));
    if (chance(10)) {
        m_clock.set(QDate(2026, 11, between(20, 23)));
    }
    advanceClock(time);
}

/// Somebody else writes and deletes meanwhile.
void Monkey::touchFiles() {
    static const QList<QByteArray> manners{"ok", "ok", "ok", "fail", "crash", "junk"};
    switch (below(4)) {
    case 0:
        note(u"put all files back"_s);
        m_playground.tidy();
        break;
    case 1: {
        const QString path = oneOf(m_playground.good());
        note(u"remove "_s + m_playground.nameOf(path));
        QFile::remove(path);
        break;
    }
    case 2: {
        note(u"replace the folder of exports by a file"_s);
        const QString folder = m_program->state.exportFolder;
        if (folder.startsWith(m_playground.programFolder())) {
            QDir(folder).removeRecursively();
            QFile file(folder);
            [[maybe_unused]] const bool made = file.open(QIODevice::WriteOnly);
        }
        break;
    }
    default: {
        const QByteArray manner = oneOf(manners);
        note(u"the renderer: "_s + QString::fromLatin1(manner));
        m_playground.setRendering(manner);
    }
    }
}

void Monkey::endProgram() {
    switch (below(4)) {
    case 0:
        note(u"SIGTERM"_s);
        std::raise(SIGTERM);
        break;
    case 1:
        note(u"end of the session"_s);
        QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
        break;
    default:
        if (actionCount() - m_firstAction > 4200) {
            note(u"SIGTERM at last"_s);
            std::raise(SIGTERM);
        } else {
            note(u"close the frame"_s);
            requestClose(m_frame);
        }
    }
}

/// What holds whatever was done.
void Monkey::checkProgram() {
    const AppState& state = m_program->state;
    const auto must = [](bool holds, const QString& what) {
        if (!holds) {
            reportFault(what);
        }
    };
    must(state.systemCount >= 0 && state.systemCount <= std::ssize(state.systemMembers),
         u"the system counts %1 of %2 members"_s.arg(state.systemCount)
             .arg(std::ssize(state.systemMembers)));
    must(state.systemOpen || !state.exportWholeSystem,
         u"a whole system is exported and none open"_s);
    must(state.guidedProcedureActive <= 2, u"a tour that does not exist"_s);
    must(m_frame->isVisible(), u"the frame is not to be seen"_s);

    int boxes = 0;
    int modals = 0;
    const QList<QWidget*> all = windows();
    for (const QWidget* window : all) {
        boxes += qobject_cast<const QMessageBox*>(window) != nullptr ? 1 : 0;
        modals += window->windowModality() != Qt::NonModal ? 1 : 0;
    }
    must(boxes <= 3, u"%1 boxes at once"_s.arg(boxes));
    must(modals <= 6, u"%1 modal windows at once"_s.arg(modals));
    must(all.size() <= 30, u"%1 windows"_s.arg(all.size()));
    const auto children = m_frame->findChild<QMdiArea*>()->subWindowList();
    must(children.size() <= 40, u"%1 windows inside the frame"_s.arg(children.size()));
    // Some window must be there to give the frame back.
    const bool isLocked = !m_frame->isEnabled() && all.size() <= 1;
    must(!isLocked, u"the frame is disabled and alone"_s);
}

} // namespace quor::test
