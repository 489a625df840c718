#pragma once

#include "system/FProj.h"

#include "shell/FrameFixture.h"

#include <QAbstractButton>
#include <QPointer>

#include <functional>
#include <vector>

/// Every window of the program, as it is with real data, for tests that walk through them all.
namespace quor::test {

/// The program with a person, or with a system of two.
class WindowScene : public FrameFixture {
  public:
    WindowScene() {
        frame.resize(1280, 960);
        frame.activateWindow();
    }
    ~WindowScene() { delete own; }
    WindowScene(const WindowScene&) = delete;
    WindowScene& operator=(const WindowScene&) = delete;
    WindowScene(WindowScene&&) = delete;
    WindowScene& operator=(WindowScene&&) = delete;

    void enterSystem() {
        frame.run(Command::mnuNuovoSistema);
        enter(u"Anna"_s);
        enter(u"Bruno"_s);
    }

    /// The window of a kind that is open.
    template<typename Window> [[nodiscard]] QWidget* open() const {
        return frame.findChild<Window*>();
    }
    template<typename Window> [[nodiscard]] QWidget* afterCommand(Command command) {
        enter();
        frame.run(command);
        return open<Window>();
    }
    template<typename Window> [[nodiscard]] QWidget* afterSystemButton(const QString& name) {
        enterSystem();
        open<FProj>()->findChild<QAbstractButton*>(name)->click();
        return open<Window>();
    }
    /// A window that the frame has no part in.
    [[nodiscard]] QWidget* keep(QWidget* window) {
        own = window;
        window->show();
        return window;
    }

    QPointer<QWidget> own;
};

struct WindowEntry {
    const char* className;
    std::function<QWidget*(WindowScene&)> open;
};

[[nodiscard]] const std::vector<WindowEntry>& everyWindow();

/// Opens the window and makes it the active one.
[[nodiscard]] QWidget* showWindow(const WindowEntry& entry, WindowScene& scene);

} // namespace quor::test
