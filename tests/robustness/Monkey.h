#pragma once

#include "core/Biorhythm.h"
#include "core/Clock.h"
#include "shell/MDIForm1.h"

#include "robustness/Playground.h"

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <random>

class QAction;
class QFileDialog;

namespace quor {
class WebBrowser;
}

namespace quor::test {

/// How long a monkey plays: whatever comes first. The time only says for how many actions.
struct Limits {
    std::uint64_t actions = 20'000;
    std::optional<std::chrono::seconds> time{};
};

/// What a monkey plays with.
enum class Means {
    hands, ///< mouse and keyboard
    all,   ///< and what an assistive tool can do
};

/// Plays with the program as the windowing system would let it: keys, mouse and closings go to the
/// windows and not to their controls, so that what is blocked by a box stays blocked. Only
/// assistive tools reach behind it.
///
/// One step is made whenever the event loop, the program's own or that of a box, has nothing else
/// to do. What is done depends on the seed and on what the program shows, and on nothing else.
class Monkey : public QObject {
    Q_OBJECT

  public:
    Monkey(std::uint64_t seed, Limits limits, Means means = Means::all);

    /// The program was started again.
    void take(MDIForm1& frame, Program& program);
    /// And has ended.
    void leave();

    [[nodiscard]] bool isDone();
    /// What the program is started with this time.
    [[nodiscard]] StartRequest startRequest();
    /// Between two runs: other files, another day.
    void prepareNextRun();

    /// A process that the program has started is let come to its end before anything else is done.
    [[nodiscard]] bool waitsForProcesses() const;

    [[nodiscard]] Playground& playground() { return m_playground; }

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    // Chance.
    [[nodiscard]] std::size_t below(std::size_t count);
    [[nodiscard]] bool chance(int percent);
    [[nodiscard]] int between(int least, int greatest);
    template<typename List> [[nodiscard]] auto oneOf(const List& list) {
        return list[static_cast<qsizetype>(below(static_cast<std::size_t>(list.size())))];
    }
    [[nodiscard]] QPoint pointIn(const QRect& area);
    [[nodiscard]] QString someText();
    [[nodiscard]] QString textFor(const QWidget& field);
    [[nodiscard]] Qt::KeyboardModifiers someModifiers();

    // What is to be seen.
    [[nodiscard]] QList<QWidget*> windows() const;
    [[nodiscard]] QWidget* someWindow();
    template<typename Widget> [[nodiscard]] QList<Widget*> usable(QWidget* window) const;
    [[nodiscard]] QString sight() const;
    [[nodiscard]] WebBrowser* busyBrowser() const;
    [[nodiscard]] bool waitsForRenderer();
    [[nodiscard]] bool restsForFiles();

    // Hands: each is done in the steps that follow.
    void press(QWidget* window, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers keys = {});
    void release(QWidget* window, QPoint at, Qt::MouseButton button,
                 Qt::KeyboardModifiers keys = {});
    void move(QWidget* window, QPoint at, Qt::MouseButtons buttons = {});
    void click(QWidget* widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = {}, int times = 1);
    void clickOn(QWidget* widget);
    void drag(QWidget* window, QPoint from, QPoint to, Qt::MouseButton button);
    void turnWheel(QWidget* window, QPoint at);
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
    void type(const QString& text);
    void fill(QWidget* field, const QString& text);
    void later(std::function<void()> step);

    // Decisions.
    void decide();
    void decideInPopup(QWidget* popup);
    void decideInFileDialog(QFileDialog* dialog);
    void decideInBox(QWidget* box);
    void decideInWindow(QWidget* window);
    void decideInFrame();
    void fillForm(QWidget* window);
    void clickSomewhere(QWidget* window);
    void pressSomeKey();
    void typeSomewhere(QWidget* window);
    void clickSomeButton(QWidget* window);
    void closeSomeWindow();
    void requestClose(QWidget* window);
    void changeSomeWindow();
    void dropFiles();
    void chooseFromMenuBar();
    void enterSomebody();
    void letTimePass();
    void helpBlindly();
    void touchFiles();
    void endProgram();
    void note(const QString& action);

    void checkProgram();

    std::mt19937_64 m_random;
    Limits m_limits;
    Means m_means;
    std::chrono::nanoseconds m_start;
    Playground m_playground;
    FixedClock m_clock{QDate(2026, 11, 21)};
    std::deque<std::function<void()>> m_hands;
    QPointer<MDIForm1> m_frame;
    Program* m_program = nullptr;
    int m_timer = 0;
    int m_mouseTime = 0; ///< of the events of the mouse, which tell a double click from two
    std::uint64_t m_firstAction = 0; ///< of this run of the program
    bool m_patient = true;           ///< lets the renderer finish
    int m_waitedTurns = 0;           ///< for the renderer
    int m_restedTurns = 0;
    bool m_ending = false;
};

} // namespace quor::test
