#pragma once

#include "toolkit/Dialogs.h"

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

namespace quor {

/// Has a page of this computer laid out as pages of paper. The work is done by `quor-render` in a
/// process of its own, which ends with this.
class PageRenderer : public QObject {
    Q_OBJECT

  public:
    explicit PageRenderer(QObject* parent = nullptr);
    ~PageRenderer() override;
    PageRenderer(const PageRenderer&) = delete;
    PageRenderer& operator=(const PageRenderer&) = delete;
    PageRenderer(PageRenderer&&) = delete;
    PageRenderer& operator=(PageRenderer&&) = delete;

    /// Path of the program that does the work; `quor-render` beside this program unless set.
    void setProgram(const QString& path) { m_program = path; }
    [[nodiscard]] const QString& program() const { return m_program; }
    /// How long one page may take.
    void setTimeLimit(std::chrono::milliseconds limit) { m_limit.setInterval(limit); }
    [[nodiscard]] std::chrono::milliseconds timeLimit() const {
        return m_limit.intervalAsDuration();
    }

    /// Starts with a page ("file:///..."). What is under way is forgotten. One of the two signals
    /// follows, never before this call has returned.
    void start(const QUrl& page, const Sheet& sheet);
    /// Forgets what is under way; no signal follows.
    void stop();

    [[nodiscard]] bool isBusy() const { return m_busy; }

  signals:
    /// @param pdf the pages, a PDF file
    void finished(const QByteArray& pdf);
    /// @param reason one sentence for the user
    void failed(const QString& reason);

  private:
    void startProcess();
    void endProcess();
    void take(int exitCode, QProcess::ExitStatus status);
    void fail(const QString& reason);

    QString m_program;
    QTimer m_limit;
    QUrl m_page;
    Sheet m_sheet;
    bool m_busy = false;
    quint64 m_started = 0; ///< counts them, so that a late word about an earlier one is known
    std::unique_ptr<QTemporaryDir> m_folder; ///< where the program writes
    std::unique_ptr<QProcess> m_process;
    qint64 m_group = 0; ///< of the program and the processes that it starts
};

} // namespace quor
