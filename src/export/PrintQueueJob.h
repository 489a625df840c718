#pragma once

#include "export/Paper.h"
#include "toolkit/Dialogs.h"

#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <QWidget>

namespace quor {

/// Hands a document over to a print queue of the system, in the background; a refusal is told in a
/// box. It goes when it is done. A program that ends before waits a moment for it.
class PrintQueueJob : public QObject {
    Q_OBJECT

  public:
    /// There is a print system to hand documents to.
    [[nodiscard]] static bool isPossible();

    static void start(QWidget* parent, const PrintableDocument& document,
                      const PrintChoice& choice);

    ~PrintQueueJob() override;
    PrintQueueJob(const PrintQueueJob&) = delete;
    PrintQueueJob& operator=(const PrintQueueJob&) = delete;
    PrintQueueJob(PrintQueueJob&&) = delete;
    PrintQueueJob& operator=(PrintQueueJob&&) = delete;

  private:
    PrintQueueJob(QWidget* parent, QString printer);

    void end(const QString& fault);

    QPointer<QWidget> m_parent;
    QString m_printer;
    QProcess m_process;
    QTimer m_limit;
};

} // namespace quor
