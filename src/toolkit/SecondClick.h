#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace quor {

/// For a window that a click has opened: where that click was the first of a double click, the
/// second, wherever it falls, is not acted on and shows the window again. It would bring back the
/// window that was clicked, or press a button of the new one. Lives until the next press, at most
/// as long as the window.
class SecondClick : public QObject {
  public:
    /// @param showAgain brings the window to the front
    SecondClick(QWidget* opened, std::function<void()> showAgain);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end();

    std::function<void()> m_showAgain;
    bool m_pressed = false;
};

} // namespace quor
