#pragma once

#include <QObject>

namespace quor {

/// Ends the event loop, without a question, when the process is told to end (SIGTERM, SIGINT,
/// SIGHUP). One at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

  public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    TerminationSignals(TerminationSignals&&) = delete;
    TerminationSignals& operator=(TerminationSignals&&) = delete;
};

} // namespace quor
