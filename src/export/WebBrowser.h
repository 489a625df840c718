#pragma once

#include "export/PageRenderer.h"
#include "export/Paper.h"

#include <QByteArray>
#include <QPointer>
#include <QUrl>
#include <QWidget>

#include <chrono>

namespace quor {

/// The browser control of the print window: it loads a page of this computer as pages of paper,
/// says when they are there, prints them and previews them. It has no look of its own and stays
/// hidden.
///
/// Loading ends with the control.
class WebBrowser : public QWidget {
    Q_OBJECT

  public:
    explicit WebBrowser(QWidget* parent = nullptr);

    /// Path of the program that does the work; `quor-render` beside this program unless set.
    void setRenderer(const QString& path) { m_renderer.setProgram(path); }
    /// How long loading a page may take.
    void setTimeLimit(std::chrono::milliseconds limit) { m_renderer.setTimeLimit(limit); }

    /// Starts loading a page ("file:///..."). What was loaded, or is being loaded, is forgotten.
    /// One of the two signals follows, never before this call has returned.
    void navigate(const QUrl& url);
    /// Forgets a page that is being loaded; no signal follows.
    void stop() { m_renderer.stop(); }

    [[nodiscard]] bool isBusy() const { return m_renderer.isBusy(); }
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
    [[nodiscard]] PrintableDocument document() const;

    PageRenderer m_renderer;
    QUrl m_url;
    QByteArray m_pages;
    QPointer<PagesWindow> m_preview;
};

} // namespace quor
