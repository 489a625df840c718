#pragma once

#include <QObject>
#include <QPointer>

class QMdiArea;
class QMdiSubWindow;

namespace quor {

/// Which window inside the frame is maximised: one at most. Once the user has maximised one, each
/// window that can grow (`ChildWindow::grows`) is maximised in its place when it becomes active. A
/// form stands in front with its title bar, and what is maximised stays so behind it. This lasts
/// until the user restores or minimises the maximised window, arranges the windows, or closes the
/// last one.
///
/// Qt's own habit, to restore what was maximised and to maximise any window that comes after it, is
/// switched off: it takes the title bar from forms too.
class MaximisedChild : public QObject {
    Q_OBJECT

  public:
    explicit MaximisedChild(QMdiArea* area);

    /// Every window of the area is to be told to it before it is shown.
    void watch(QMdiSubWindow* window);
    /// Shows a window with its contents and makes it the active one.
    void show(QMdiSubWindow* window);

  private:
    void activated(QMdiSubWindow* window);
    void stateChanged(QMdiSubWindow* window, Qt::WindowStates before, Qt::WindowStates after);
    /// Leaves no other window maximised.
    void maximise(QMdiSubWindow* window);
    /// What is seen behind a window that closes comes next.
    void closed(const QMdiSubWindow* window);

    QMdiArea* m_area;
    QPointer<QMdiSubWindow> m_window; ///< the one that is maximised; null for none
    bool m_on = false;                ///< windows that can grow are to be maximised
    bool m_changing = false;          ///< by this class, not by the user
};

} // namespace quor
