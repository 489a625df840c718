#pragma once

#include <QObject>

namespace quor {

/// An event filter for the application, for what a person does quicker than the program can follow.
///   - A button that is pressed by its access key, or by a screen reader, is seen to go down and is
///     clicked a tenth of a second later. When a modal window has opened above it meanwhile, that
///     click waits until that one is closed: it could close the window that waits for an answer.
///     When its window has been closed, it does nothing.
///   - What is typed or clicked before a window is seen to close still comes to that window. It
///     does nothing there: else two quick clicks on "Ok" would be two answers.
class LateInput : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quor
