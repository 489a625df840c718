#pragma once

#include <QObject>

class QWidget;

namespace quor {

/// Lets F1 do what the help button of the active window does, the active window inside the frame
/// first of all; where there is none it opens the help as a whole. A help button is one with the
/// caption "&?", or with another one and the property "helpButton". In the help itself F1 shows
/// which keys work there. Install it on the application.
class HelpKey : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static void helpWith(QWidget* window);
};

} // namespace quor
