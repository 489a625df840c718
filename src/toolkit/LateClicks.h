#pragma once

#include <QObject>

namespace quor {

/// A button that is pressed by its access key, or by a screen reader, is seen to go down and is
/// clicked a tenth of a second later. What happens meanwhile may leave it no place for that click:
/// an event filter for the application which keeps
///   - a click beneath a modal window until that one is closed: it would close the window that
///     waits for an answer;
///   - a click in a window closed meanwhile from doing anything.
class LateClicks : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quor
