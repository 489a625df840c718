#pragma once

#include <QByteArray>
#include <QPointer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <memory>

namespace quor {

class PagesWindow;

/// The browser control of the print window: it loads a page of this computer as pages of paper,
/// says when they are there, prints them and previews them. It has no look of its own and stays
/// hidden.
///
/// The work is done by `quor-render` in a process of its own, which ends with the control.
class WebBrowser : public QWidget {
    Q_OBJECT

  public:
    explicit WebBrowser(QWidget* parent = nullptr);
    ~WebBrowser() override;
    WebBrowser(const WebBrowser&) = delete;
    WebBrowser& operator=(const WebBrowser&) = delete;
    WebBrowser(WebBrowser&&) = delete;
    WebBrowser& operator=(WebBrowser&&) = delete;

    /// Path of the program that does the work; `quor-render` beside this program unless set.
    void setRenderer(const QString& path) { m_renderer = path; }
    /// How long loading a page may take.
    void setTimeLimit(std::chrono::milliseconds limit) { m_limit.setInterval(limit); }

    /// Starts loading a page ("file:///..."). What was loaded, or is being loaded, is forgotten.
    /// One of the two signals follows, never before this call has returned.
    void navigate(const QUrl& url);
    /// Forgets a page that is being loaded; no signal follows.
    void stop();

    [[nodiscard]] bool isBusy() const { return m_busy; }
    /// The pages of the page that was loaded, a PDF file; empty when there is none.
    [[nodiscard]] const QByteArray& pages() const { return m_pages; }

    /// Asks for the printer and prints the pages. Nothing happens when there are none.
    void print();
    /// Shows the pages in a window that stays open; one that is open gets these pages.
    void printPreview();

  signals:
    void documentComplete();
    /// @param reason one sentence for the user
    void navigationFailed(const QString& reason);

  private:
    void startRenderer();
    void endRenderer();
    void take(int exitCode, QProcess::ExitStatus status);
    void fail(const QString& reason);

    QString m_renderer;
    QTimer m_limit;
    QUrl m_url;
    bool m_busy = false;
    quint64 m_navigation = 0; ///< counts them, so that a late word about an earlier one is known
    QByteArray m_pages;
    std::unique_ptr<QTemporaryDir> m_folder; ///< where the renderer writes
    std::unique_ptr<QProcess> m_process;
    qint64 m_group = 0; ///< of the renderer and the processes that it starts
    QPointer<PagesWindow> m_preview;
};

} // namespace quor
