#pragma once

#include <QObject>

namespace quor {

/// Ends the event loop, without a question and without asking any window, when the system tells the
/// program to end: by a signal (SIGTERM, SIGINT, SIGHUP; one that the parent process had switched
/// off stays off) or by the end of the session. One object at a time, while the application lives.
class EndRequests : public QObject {
    Q_OBJECT

  public:
    explicit EndRequests(QObject* parent = nullptr);
    ~EndRequests() override;
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;
    EndRequests(EndRequests&&) = delete;
    EndRequests& operator=(EndRequests&&) = delete;

  signals:
    /// Just before: open boxes still stand, and nobody has taken their end for an answer yet.
    void aboutToEnd();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end();
};

} // namespace quor
