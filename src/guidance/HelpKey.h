#pragma once

#include <QObject>

class QWidget;

namespace quor {

/// Lets F1 do what the help button of the active window does, the active window inside the frame
/// first of all. A help button is one with the caption "&?", or with another one and the property
/// "helpButton". A window without such a button may name its page in the property "helpTopic"
/// ("leggere-grafico.html"), as the help itself does, for the keys that work there; otherwise F1
/// opens the help as a whole. Install it on the application.
class HelpKey : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static void helpWith(QWidget* window);
};

} // namespace quor
