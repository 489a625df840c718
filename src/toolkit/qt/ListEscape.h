#pragma once

#include <QObject>

/// An event filter for the application: Escape in the open list of a combo box closes the list and
/// nothing else.
///
/// In Qt 6.4 the list closes on QEvent::ShortcutOverride, which comes before QEvent::KeyPress. On
/// Wayland both go to the window below the list, which keeps the keyboard there: KeyPress closes
/// that dialog too. On X they go to the list's own window. In Qt 6.8 the list has the keyboard on
/// Wayland as well, and closes on KeyPress. Tests: TestListEscape, tests/e2e/test_wayland.py.
namespace quor::qt {

class ListEscape : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool m_wasOpen = false; ///< a popup, when Escape was last asked about
};

} // namespace quor::qt
